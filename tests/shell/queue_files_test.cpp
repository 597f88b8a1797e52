// The pieces of the job queue that are plain text: template expansion, the parameter
// file, a job's command file, the Windows batch text and the merged results table.
// Expected texts are written out by hand from the placeholder table and the job layout.
#include <gtest/gtest.h>

#include "shell/command_text.h"
#include "shell/queue_collect.h"
#include "shell/queue_params.h"
#include "shell/queue_scripts.h"
#include "shell/queue_template.h"
#include "shell/queue_writer.h"

namespace tidemark::shell {
namespace {

struct ExpandCase {
  const char* file;
  const char* text;
  const char* expected;
};

class ExpandTemplate : public ::testing::TestWithParam<ExpandCase> {};

TEST_P(ExpandTemplate, ReplacesEachPlaceholderByItsPart) {
  const ExpandCase& c = GetParam();
  EXPECT_EQ(expand_template(c.text, split_file_name(c.file)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Placeholders, ExpandTemplate,
    ::testing::Values(
        ExpandCase{"/d/s07.dat", "%~dpnx|%~dpn|%~dp|%~d|%~p|%~nx|%~n|%~x",
                   "/d/s07.dat|/d/s07|/d/||/d/|s07.dat|s07|.dat"},
        ExpandCase{"/d/s07.dat", "%drive%|%path%|%name%|%extension%", "|/d/|s07|.dat"},
        // The longer placeholder wins over its prefix; letter case does not matter.
        ExpandCase{"/d/s07.dat", "%~DPNX%~dpnxx", "/d/s07.dat/d/s07.datx"},
        ExpandCase{"/d/s07", "[%~x][%extension%][%~nx]", "[][][s07]"},
        ExpandCase{"/d/a.b.c", "%~n %~x", "a.b .c"},
        ExpandCase{"/d/.hidden", "%~n|%~x", ".hidden|"},
        ExpandCase{"/d/s07.dat", "100% sure %~q %", "100% sure %~q %"}));

TEST(ExpandTemplate, FillsTheSubjectOfTheParameterLine) {
  NameParts parts = split_file_name("/d/study.csv");
  parts.subject = "S 07";
  EXPECT_EQ(expand_template("READ_CSV \"%~dpnx\" ONLY=\"%subject%\"", parts),
            "READ_CSV \"/d/study.csv\" ONLY=\"S 07\"");
}

TEST(QueueParameters, SkipsBlankAndCommentLinesAndKeepsNamesAsTheyAre) {
  const auto entries = parse_queue_parameters(
      "! subjects of the study\n\n  a b.dat  \r\n-x;$HOME&\"q\".dat\nstudy.csv | S07\n!x\n");
  EXPECT_EQ(entries, (std::vector<QueueEntry>{{"a b.dat", ""},
                                              {"-x;$HOME&\"q\".dat", ""},
                                              {"study.csv", "S07"}}));
  EXPECT_TRUE(parse_queue_parameters("\n ! only a comment\n\n").empty());
}

TEST(QueueJob, CommandFileEndsWithTheSummarySaveAsLogAndExit) {
  EXPECT_EQ(job_command_text("BQ_0002", "READ_NATIVE \"%~dpnx\"\nMODE Cluster8\nCLUSTER_CALCULATE",
                             {"/d/x y.dat", ""}, "/q"),
            "! job BQ_0002: /d/x y.dat\n"
            "READ_NATIVE \"/d/x y.dat\"\nMODE Cluster8\nCLUSTER_CALCULATE\n"
            "WRITE_SUMMARY_BOOKS \"/q/BQ_0002.csv\"\n"
            "SAVE_AS_LOG \"/q/BQ_0002.log\"\n"
            "EXIT\n");
}

TEST(QueueJob, NamesThatHoldQuotesReachTheCommandWhole) {
  // A quoted argument ends at a double quote that a blank or the line end follows.
  EXPECT_EQ(command_argument("READ_NATIVE \"/d/say \"hi\".dat\"", "READ_NATIVE"), "/d/say \"hi\".dat");
  EXPECT_EQ(text_after_argument("READ_CSV \"a\"b.csv\" TIME=t", "READ_CSV"), "TIME=t");
  EXPECT_EQ(quoted_arguments("QUEUE_JOBS \"a.tpl\" \"b c.par\"", "QUEUE_JOBS"),
            (std::vector<std::string>{"a.tpl", "b c.par"}));
  EXPECT_EQ(sh_quote("it's $x"), "'it'\\''s $x'");
}

TEST(QueueBatchText, TakesEachJobFromTheSharedQueueAndListsItForDeletion) {
  const std::string local = "%BATCH_DRIVE%%BATCH_PATH%\\%BATCH_CORE%";
  EXPECT_EQ(windows_batch_text({"BQ_0001"}, "tidemark"),
            "@ECHO OFF\n"
            "IF a\"%BATCH_QUEUE%\" == a\"" + local + "\" goto next\n"
            "IF NOT EXIST %BATCH_QUEUE%\\BQ_0001_.bat goto done\n"
            "copy %BATCH_QUEUE%\\BQ_0001_.bat " + local + "\\\n"
            "del %BATCH_QUEUE%\\BQ_0001_.bat\n"
            ":next\n"
            "tidemark.exe -@ " + local + "\\BQ_0001_.bat\n"
            "IF a\"%BATCH_QUEUE%\" == a\"" + local + "\" goto mext\n"
            "del " + local + "\\BQ_0001_.bat\n"
            ":mext\n"
            ":done\n"
            "REM IF_KILL_DELETE BQ_0001_.bat\n");
}

TEST(QueueCollect, OneRowPerDataSetAndModeWithStatusAndTheLogOfAFailedJob) {
  // A book with ApEn's cycle count in Q (17) and Cluster8's peak count in AQ (43).
  std::string heading = "File Name";
  std::string row = "a.dat";
  for (int column = 2; column <= 43; ++column) {
    heading += column == 17 ? ",ApEn # MC Cycles" : column == 43 ? ",Cluster8 # Peaks" : ",";
    row += column == 17 ? ",1000" : column == 43 ? ",5" : ",";
  }
  const std::vector<JobOutcome> jobs{
      {"BQ_0001", "/d/a.dat", "", "done", "/q/BQ_0001.log", heading + "\n" + row + "\n"},
      {"BQ_0002", "/d/b, c.dat", "", "failed (exit 1)", "/q/BQ_0002.log", ""},
      {"BQ_0003", "/d/d.dat", "", "not run", "/q/BQ_0003.out", ""}};
  EXPECT_EQ(merge_job_outcomes(jobs),
            "Job,Data File,Subject,Data Set,Mode,Status,Log,ApEn # MC Cycles,Cluster8 # Peaks\n"
            "BQ_0001,/d/a.dat,,a.dat,ApEn,done,,1000,\n"
            "BQ_0001,/d/a.dat,,a.dat,Cluster8,done,,,5\n"
            "BQ_0002,\"/d/b, c.dat\",,,,failed (exit 1),/q/BQ_0002.log,,\n"
            "BQ_0003,/d/d.dat,,,,not run,/q/BQ_0003.out,,\n");
}

}  // namespace
}  // namespace tidemark::shell
