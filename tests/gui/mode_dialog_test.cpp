// The mode's dialog is made from its description; an edited field becomes its SET line
// before the button's command, and each of the frame's buttons issues its command.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "desktop_fixture.h"
#include "gui/field_editors.h"
#include "gui/mode_panel.h"

namespace tidemark::testing_support {
namespace {

using ModeDialogTest = DesktopTest;

TEST_F(ModeDialogTest, EveryBuiltModeGetsItsFieldsWithoutCodeOfItsOwn) {
  read_example("lh_24h_10min.dat");
  read_example("gh_overnight_5min.dat");
  for (int i = 1; i <= shell::kModeCount; ++i) {
    const auto module = parts().modules[static_cast<std::size_t>(i - 1)];
    if (!module) continue;
    trigger("Mode/" + std::string(shell::mode_info(i).name));
    const auto made = module(shell::mode_info(i).variant);
    gui::FieldEditors* editors = window().mode_panel()->editors();
    ASSERT_NE(editors, nullptr) << shell::mode_info(i).name;
    EXPECT_EQ(editors->dialog().title, made->dialog().title);
    for (const ui::Field& field : made->dialog().fields)
      EXPECT_NE(editors->editor(field.label), nullptr) << field.label;
  }
}

TEST_F(ModeDialogTest, AnEditBecomesItsSetLineBeforeTheButtonsCommand) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/Cluster8");
  gui::FieldEditors* editors = window().mode_panel()->editors();
  ASSERT_NE(editors, nullptr);
  auto* t = qobject_cast<QLineEdit*>(editors->editor("T-Score for Increase"));
  ASSERT_NE(t, nullptr);
  t->setText("2.5");
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const auto all = commands();
  ASSERT_GE(all.size(), 2u);
  // A SET records the shortest decimal that reads back to the same value.
  EXPECT_EQ(all[all.size() - 2], "SET T-Score for Increase = 2.5");
  EXPECT_EQ(all.back(), "CLUSTER_CALCULATE");
  // The same value again is no change: only the command follows.
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const auto again = commands();
  EXPECT_EQ(again.size(), all.size() + 1);
}

TEST_F(ModeDialogTest, FrameButtonsIssueTheirCommands) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/Cluster8");
  const std::pair<const char*, const char*> buttons[] = {
      {"Calculate", "CLUSTER_CALCULATE"},
      {"View Results", "CLUSTER_VIEW"},
      {"Store Results", "STORE_RESULTS"},
      {"Recall Results", "RECALL_RESULTS"},
      {"Save Parameters as Default", "SAVE_PARAMETERS"},
      {"OK", "TEMP_CLOSE"},
  };
  for (const auto& [text, command] : buttons) {
    auto* b = window().mode_panel()->findChild<QPushButton*>(text);
    ASSERT_NE(b, nullptr) << text;
    b->click();
    settle();
    EXPECT_EQ(last_command(), command) << text;
  }
  EXPECT_NE(std::find(titles_seen.begin(), titles_seen.end(), "Cluster8"), titles_seen.end());
  // View Results shows the listing in the viewer.
  EXPECT_GE(window().viewers()->count(), 1);
}

TEST_F(ModeDialogTest, ChecksAndMenusBecomeOnOffAndTheChoiceText) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/Gold_Method");
  gui::FieldEditors* editors = window().mode_panel()->editors();
  ASSERT_NE(editors, nullptr);
  std::string expected;
  for (const ui::Field& field : editors->dialog().fields) {
    if (field.read_only) continue;
    if (auto* box = qobject_cast<QComboBox*>(editors->editor(field.label)); box && box->count() > 1) {
      box->setCurrentIndex((box->currentIndex() + 1) % box->count());
      expected = "SET " + field.label + " = " + box->currentText().toStdString();
      break;
    }
  }
  ASSERT_FALSE(expected.empty()) << "Gold_Method has a menu field";
  window().mode_panel()->findChild<QPushButton*>("Save Parameters as Default")->click();
  settle();
  const auto all = commands();
  ASSERT_GE(all.size(), 2u);
  EXPECT_EQ(all[all.size() - 2], expected);
  EXPECT_EQ(all.back(), "SAVE_PARAMETERS");
}

}  // namespace
}  // namespace tidemark::testing_support
