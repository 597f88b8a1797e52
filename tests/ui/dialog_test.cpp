#include "ui/dialog.h"

#include <gtest/gtest.h>

namespace tidemark::ui {
namespace {

const Field kReal{"T-Score for Increase", FieldKind::kReal, "2.0", "CLUSTER Parameters", {}};
const Field kInteger{"# Points for Peak", FieldKind::kInteger, "2", "CLUSTER Parameters", {}};
const Field kCheck{"Show Outliers", FieldKind::kCheck, "ON", "Graph", {}};
const Field kText{"Title", FieldKind::kText, "", "Graph", {}};
const Field kMenu{"Criterion",
                  FieldKind::kMenu,
                  "Least Squares",
                  "Fit",
                  {"Least Squares", "Least Absolute", "Min-Max"}};

struct Case {
  const Field* field;
  const char* text;
  std::optional<FieldValue> value;
};

// Each kind reads its own texts and refuses the others.
TEST(Dialog, FieldValuesReadByKind) {
  const Case cases[] = {
      {&kReal, " 2.5 ", 2.5},
      {&kReal, "1.0D-3", 0.001},  // a Fortran exponent letter, as settings files may hold
      {&kReal, "abc", std::nullopt},
      {&kReal, "NaN", std::nullopt},
      {&kInteger, "-7", -7},
      {&kInteger, "2.5", std::nullopt},
      {&kInteger, "99999999999", std::nullopt},  // beyond 32 bits
      {&kCheck, "off", false},
      {&kCheck, "Yes", true},
      {&kCheck, "maybe", std::nullopt},
      {&kText, "  LH series ", std::string("LH series")},
      {&kMenu, "min-max", 2},
      {&kMenu, "Median", std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(parse_field_value(*c.field, c.text), c.value) << c.field->label << " " << c.text;
  }
}

// Written values read back to themselves, reals to the very same double: a SET line
// of the history must replay the value that was used. The expected texts are Python's
// repr() of the same doubles (the shortest decimal that reads back to them).
TEST(Dialog, WrittenValuesReadBackExactly) {
  const std::pair<double, const char*> reals[] = {
      {1234.56789, "1234.56789"}, {1.0 / 3.0, "0.3333333333333333"}, {1e-5, "1e-05"},
      {-1e30, "-1e+30"},          {2.123456, "2.123456"},             {0.35, "0.35"}};
  for (const auto& [value, text] : reals) {
    EXPECT_EQ(format_field_value(kReal, value), text);
    EXPECT_EQ(parse_field_value(kReal, format_field_value(kReal, value)), FieldValue{value})
        << text;
  }
  EXPECT_EQ(format_field_value(kCheck, false), "OFF");
  EXPECT_EQ(format_field_value(kMenu, 1), "Least Absolute");
  for (const auto& [field, value] : {std::pair<const Field*, FieldValue>{&kInteger, 12},
                                     {&kCheck, true},
                                     {&kMenu, 2},
                                     {&kText, std::string("GH")},
                                     {&kReal, 50.0}}) {
    EXPECT_EQ(parse_field_value(*field, format_field_value(*field, value)), value) << field->label;
  }
}

TEST(Dialog, FieldsAreFoundByLabelInAnyLetterCaseAndDefaultsRead) {
  const Dialog d{"CLUSTER ANALYSIS", {kReal, kInteger, kCheck, kText, kMenu}};
  EXPECT_EQ(d.find(" show OUTLIERS "), 2u);
  EXPECT_EQ(d.find("Show"), std::nullopt);
  EXPECT_EQ(default_values(d), (std::vector<FieldValue>{2.0, 2, true, std::string(), 0}));
}

}  // namespace
}  // namespace tidemark::ui
