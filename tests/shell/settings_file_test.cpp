#include "shell/settings_file.h"

#include <gtest/gtest.h>

#include "shell/scratch.h"

namespace tidemark::shell {
namespace {

using testing_support::Scratch;
using ui::FieldKind;

ui::Dialog cluster_like() {
  return {"CLUSTER ANALYSIS",
          {{"# Points for Peak", FieldKind::kInteger, "2", "CLUSTER Parameters", {}},
           {"T-Score for Increase", FieldKind::kReal, "2.0", "CLUSTER Parameters", {}},
           {"Show Outliers", FieldKind::kCheck, "ON", "Graph", {}},
           {"Title", FieldKind::kText, "LH", "Graph", {}},
           {"Criterion", FieldKind::kMenu, "Least Squares", "Fit", {"Least Squares", "Min-Max"}}}};
}

// Reals are written as gfortran writes them with (1PG15.5): 2.5 -> "     2.5000    ".
TEST(SettingsFile, RealsAreWrittenInTheListingFormat) {
  const ui::Dialog d = cluster_like();
  auto values = ui::default_values(d);
  values[1] = 2.5;
  EXPECT_EQ(settings_text(d, values),
            "# Points for Peak = 2\n"
            "T-Score for Increase =      2.5000    \n"
            "Show Outliers = ON\n"
            "Title = LH\n"
            "Criterion = Least Squares\n");
}

TEST(SettingsFile, ValuesSurviveAWriteAndARead) {
  Scratch dir;
  const ui::Dialog d = cluster_like();
  std::vector<ui::FieldValue> values{5, 3.25, false, std::string("GH"), 1};
  dir.write("do_test.ini", settings_text(d, values));
  const auto read = read_settings(dir / "do_test.ini", d);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->values, values);
  EXPECT_TRUE(read->ignored.empty());
}

// What can be read is read, whatever else the file holds; each line not used, and each
// field without a line, is named with the reason.
TEST(SettingsFile, EveryReadableLineCountsAndTheRestIsNamed) {
  Scratch dir;
  const ui::Dialog d = cluster_like();
  EXPECT_EQ(read_settings(dir / "none.ini", d), std::nullopt);
  struct Case {
    std::string text;
    std::vector<ui::FieldValue> values;
    std::vector<std::string> ignored;
  };
  const std::vector<ui::FieldValue> defaults = ui::default_values(d);
  const Case cases[] = {
      // Written on another system: CRLF line ends, a comment line.
      {"! saved by hand\r\n# Points for Peak = 5\r\nT-Score for Increase = 3.5\r\n"
       "; note\r\nShow Outliers = OFF\r\nTitle = GH\r\nCriterion = Min-Max\r\n",
       {5, 3.5, false, std::string("GH"), 1},
       {}},
      // An unknown line, a bad value and a line without "=" among good ones.
      {"# Points for Peak = two\nUnknown Field = 3\nT-Score for Increase = 3.5\njunk\n"
       "Show Outliers = OFF\nTitle = GH\nCriterion = Min-Max\n",
       {2, 3.5, false, std::string("GH"), 1},
       {"line 1 (# Points for Peak = two): \"two\" is not a valid value for the field "
        "\"# Points for Peak\" (a whole number)",
        "line 2 (Unknown Field = 3): The dialog \"CLUSTER ANALYSIS\" has no field "
        "\"Unknown Field\"",
        "line 4 (junk): not of the form \"label = value\"",
        "no line for \"# Points for Peak\": its default 2 holds"}},
      // Fields without a line keep their defaults.
      {"T-Score for Increase = 3.5\n",
       {2, 3.5, true, std::string("LH"), 0},
       {"no line for \"# Points for Peak\": its default 2 holds",
        "no line for \"Show Outliers\": its default ON holds",
        "no line for \"Title\": its default LH holds",
        "no line for \"Criterion\": its default Least Squares holds"}},
  };
  for (const Case& c : cases) {
    dir.write("do_test.ini", c.text);
    const auto read = read_settings(dir / "do_test.ini", d);
    ASSERT_TRUE(read) << c.text;
    EXPECT_EQ(read->values, c.values) << c.text;
    EXPECT_EQ(read->ignored, c.ignored) << c.text;
  }
}

TEST(SettingsFile, AssignmentsAreRefusedNamingTheFieldAndChangeNothing) {
  const ui::Dialog d = cluster_like();
  auto values = ui::default_values(d);
  const auto before = values;
  EXPECT_EQ(assign_field(d, {"T-Score for Increase", "abc"}, values),
            "\"abc\" is not a valid value for the field \"T-Score for Increase\" (a real number)");
  EXPECT_EQ(assign_field(d, {"No Such", "1"}, values),
            "The dialog \"CLUSTER ANALYSIS\" has no field \"No Such\"");
  EXPECT_EQ(values, before);
  EXPECT_EQ(assign_field(d, {"t-score for increase", "2.5"}, values), "");
  EXPECT_EQ(std::get<double>(values[1]), 2.5);
}

TEST(SettingsFile, AResultFieldIsNeitherKeptInTheFileNorSet) {
  Scratch dir;
  ui::Dialog d = cluster_like();
  d.fields.push_back({"Variance", FieldKind::kText, "", "Results", {}, true});
  auto values = ui::default_values(d);
  values[1] = 2.5;
  values[5] = std::string(" Variance = 3.0");
  const std::string text = settings_text(d, values);
  EXPECT_EQ(text.find("Variance"), std::string::npos) << text;
  // The file without the result reads back, the result at its default.
  dir.write("do_test.ini", text);
  auto expected = values;
  expected[5] = std::string();
  EXPECT_EQ(read_settings(dir / "do_test.ini", d)->values, expected);
  EXPECT_EQ(assign_field(d, {"variance", "1"}, values),
            "The field \"Variance\" shows a result and cannot be set");
  EXPECT_EQ(std::get<std::string>(values[5]), " Variance = 3.0");
}

TEST(SettingsFile, AnAssignmentSplitsAtItsFirstEqualsSign) {
  const auto a = split_assignment(" Title = a = b ");
  ASSERT_TRUE(a);
  EXPECT_EQ(a->label, "Title");
  EXPECT_EQ(a->value, "a = b");
  EXPECT_FALSE(split_assignment("no sign"));
  EXPECT_FALSE(split_assignment(" = 3"));
}

// A label may hold an "=" (the deconvolution's "CONC(T=0)"): the split finds the field.
TEST(SettingsFile, ALabelWithAnEqualsSignNamesItsField) {
  const ui::Dialog d{"DECON",
                     {{"CONC(T=0)", FieldKind::kReal, "1.0", "Model", {}},
                      {"Fit CONC(T=0)", FieldKind::kCheck, "ON", "Model", {}},
                      {"Title", FieldKind::kText, "LH", "Graph", {}}}};
  struct Case {
    const char* text;
    const char* label;
    const char* value;
  };
  for (const Case& c : {Case{"CONC(T=0) = 2.5", "CONC(T=0)", "2.5"},
                        Case{" fit conc(t=0)=OFF", "fit conc(t=0)", "OFF"},
                        Case{"Title = a = b", "Title", "a = b"},
                        Case{"Colour(x=1) = red", "Colour(x", "1) = red"}}) {
    const auto a = split_assignment(c.text, d);
    ASSERT_TRUE(a) << c.text;
    EXPECT_EQ(a->label, c.label) << c.text;
    EXPECT_EQ(a->value, c.value) << c.text;
  }
  // Written and read back: the value survives.
  Scratch dir;
  std::vector<ui::FieldValue> values{2.5, false, std::string("GH")};
  dir.write("do_decon.ini", settings_text(d, values));
  const auto read = read_settings(dir / "do_decon.ini", d);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->values, values);
  EXPECT_TRUE(read->ignored.empty());
}

}  // namespace
}  // namespace tidemark::shell
