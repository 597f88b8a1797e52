#include "data/native_parser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidemark::data {
namespace {

using Lines = std::vector<std::string>;

NativeReadResult parse(const Lines& lines, int preprocessor_errors = 0, bool verbose = false) {
  NativeParser parser("s.dat", verbose);
  for (const auto& line : lines) parser.take(line);
  return std::move(parser).finish(preprocessor_errors);
}

TEST(NativeParser, ReadsKeywordsAndPointsInAnyOrder) {
  const auto r = parse({"; a comment is skipped", "!HANDLE = S07", "1 2.5 0.1 2", "",
                        "!header_y = LH", "2,3.5", "   ", "3 NaN"});
  ASSERT_TRUE(r.ok);
  EXPECT_TRUE(r.messages.empty());
  EXPECT_EQ(r.set.file_name, "s.dat");
  EXPECT_EQ(r.set.handle, "S07");
  EXPECT_EQ(r.set.headers[kY], "LH");
  EXPECT_EQ(r.set.x(), (std::vector<float>{1, 2, 3}));
  EXPECT_EQ(r.set.y(), (std::vector<float>{2.5f, 3.5f, core::kMissingF}));
  EXPECT_EQ(r.log, Lines{"3 data points read"});
}

TEST(NativeParser, FileNameKeywordNamesTheRecord) {
  EXPECT_EQ(parse({"!FILENAME = other.dat", "1 2", "2 3"}).set.file_name, "other.dat");
  // The writer comments its file-name line out, so reading it back keeps the name read.
  EXPECT_EQ(parse({";!FILENAME = other.dat", "1 2", "2 3"}).set.file_name, "s.dat");
}

// Each bad file gives one box with the read-error title and these lines, and no record.
TEST(NativeParser, BadFilesAreRefusedWithTheirMessage) {
  struct Case {
    Lines file;
    Lines box;
  };
  const std::string head = "Could Not Read The Data File";
  const Case cases[] = {
      {{"1 2"}, {head, "Data Read Error, not enough data points!"}},
      {{"; only comments"}, {head, "Data Read Error, not enough data points!"}},
      {{}, {head, "Data Read Error, not enough data points!"}},
      {{"!NX = 2", "1 2", "2 3"}, {head, "!NX value was too big s.dat"}},
      {{"1 2", "2 3", "!NY=0"}, {head, "!NY value was too small s.dat"}},
      {{"1 2", "2 3", "3 4.2O", "4 5"}, {head, "Native Mode Read Error Reading Data Y(3) Field"}},
      {{"1 2", "x 3"}, {head, "Native Mode Read Error Reading Data X(2) Field"}},
      {{"!ANSWER(201) = 3.5", "1 2", "2 3"},
       {head, "!Invalid INDEX !ANSWER(201) = 3.5", "Native Mode Read Error Reading !ANSWER Field"}},
      // The first error stops the read: the later bad line is not reported.
      {{"1 2", "2 x", "!NX=5"}, {head, "Native Mode Read Error Reading Data Y(2) Field"}},
  };
  for (const auto& c : cases) {
    const auto r = parse(c.file);
    EXPECT_FALSE(r.ok);
    ASSERT_EQ(r.messages.size(), 1u);
    EXPECT_EQ(r.messages[0].title, "ERROR READING DATA FILE");
    EXPECT_EQ(r.messages[0].lines, c.box);
    EXPECT_TRUE(r.log.empty());
  }
}

TEST(NativeParser, PreprocessorErrorsAreLoggedAndShownWithTheirCount) {
  const auto ok = parse({";pp error: #bogus", "1 2", "2 3"}, 1);
  ASSERT_TRUE(ok.ok);
  EXPECT_EQ(ok.preprocessor_errors, 1);
  EXPECT_EQ(ok.log, (Lines{";pp error: #bogus", "1 pre processor errors", "2 data points read"}));
  ASSERT_EQ(ok.messages.size(), 1u);
  EXPECT_EQ(ok.messages[0].title, "PRE PROCESSOR ERRORS");
  EXPECT_EQ(ok.messages[0].lines, Lines{"1 pre processor errors"});

  const auto bad = parse({";pp error: #else", ";pp error: #endif", "1 2"}, 2);
  EXPECT_FALSE(bad.ok);
  ASSERT_EQ(bad.messages.size(), 1u);
  EXPECT_EQ(bad.messages[0].lines,
            (Lines{"Could Not Read The Data File", "Data Read Error, not enough data points!",
                   "2 pre processor errors"}));
}

TEST(NativeParser, VerboseReadingLogsTheLinesTakenUntilSwitchedOff) {
  const auto r = parse({"; quiet", "!VERBOSE ON", "; loud", "1 2", "!verboseOFF", "2 3"});
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.log, (Lines{"!VERBOSE ON", "; loud", "1 2", "2 data points read"}));
  EXPECT_EQ(parse({"1 2", "2 3"}, 0, true).log, (Lines{"1 2", "2 3", "2 data points read"}));
}

}  // namespace
}  // namespace tidemark::data
