// File / Queue Batch Jobs opens the queue dialog; its Queue button issues QUEUE_JOBS,
// which the shell carries out and records.
#include <QLineEdit>
#include <QPushButton>

#include "desktop_fixture.h"
#include "gui/queue_dialog.h"

namespace tidemark::testing_support {
namespace {

using QueueDialogTest = DesktopTest;

TEST(QueueCommand, QuotesEachNameAndLeavesOutAnEmptyFolder) {
  EXPECT_EQ(gui::queue_command("a b.tpl", "s.par", "/q/x"), "QUEUE_JOBS \"a b.tpl\" \"s.par\" \"/q/x\"");
  EXPECT_EQ(gui::queue_command("a.tpl", "s.par", ""), "QUEUE_JOBS \"a.tpl\" \"s.par\"");
}

TEST_F(QueueDialogTest, TheDialogQueuesTheJobsAndTheCommandIsRecorded) {
  const std::string tpl = scratch_.write("work/cluster.tpl", "READ_NATIVE \"%~dpnx\"\n").string();
  const std::string par = scratch_.write("work/study.par", "s01.dat\ns02.dat\n").string();
  const std::string folder = (work_ / "study queue").string();
  trigger("File/Queue Batch Jobs");
  auto* dialog = window().findChild<gui::QueueDialog*>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->windowTitle().toStdString(), "Queue a Series of  Jobs");
  dialog->field("Template")->setText(QString::fromStdString(tpl));
  dialog->field("Parameter File")->setText(QString::fromStdString(par));
  dialog->field("Queue Folder")->setText(QString::fromStdString(folder));
  dialog->findChild<QPushButton*>("Queue")->click();
  settle();
  EXPECT_EQ(last_command(), "QUEUE_JOBS \"" + tpl + "\" \"" + par + "\" \"" + folder + "\"");
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder) / "BQ_jobs.txt"));
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder) / "BQ_0002_.bat"));
}

}  // namespace
}  // namespace tidemark::testing_support
