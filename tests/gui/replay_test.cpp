// A desktop session's history replays headless to the same results, byte for byte; a
// cancelled calculation leaves the previous results; the spreadsheet's grid issues the
// spreadsheet's commands.
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include "desktop_fixture.h"
#include "gui/field_editors.h"
#include "gui/sheet_view.h"
#include "shell/program_runner.h"

namespace tidemark::testing_support {
namespace {

using ReplayTest = DesktopTest;

TEST_F(ReplayTest, ADesktopSessionReplaysHeadlessToIdenticalListings) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/ApEn");
  auto* cycles = qobject_cast<QLineEdit*>(window().mode_panel()->editors()->editor("MC Cycles"));
  ASSERT_NE(cycles, nullptr);
  cycles->setText("40");
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const std::string listing = (work_ / "apen.lst").string();
  const std::string png = (work_ / "apen.png").string();
  const std::string grf = (work_ / "apen.grf").string();
  files_to_choose = {listing, grf, png};
  trigger("Results/Current Listing/Rename");
  trigger("Graphics/Save As/ASCII (*.grf)");
  trigger("Graphics/Save As/PCX/BMP/PNG");
  const std::string desktop_listing = Scratch::read(listing);
  const std::string desktop_grf = Scratch::read(grf);
  const std::string desktop_png = Scratch::read(png);
  ASSERT_FALSE(desktop_listing.empty());
  const std::string history = Scratch::read(window().session().history);
  EXPECT_NE(history.find("SET MC Cycles = 40"), std::string::npos);

  for (const auto& f : {listing, grf, png}) std::filesystem::remove(f);
  Scratch headless_home;
  const auto batch = scratch_.write("replay.bat", history);
  const ProgramRun run = run_tidemark(headless_home.path(), work_, {"-@", batch.string()}, "");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Scratch::read(listing), desktop_listing);
  EXPECT_EQ(Scratch::read(grf), desktop_grf);
  // The picture too, although the desktop drew the graph on screen (and measured its
  // page on a vector surface) before exporting it.
  ASSERT_FALSE(desktop_png.empty());
  EXPECT_TRUE(Scratch::read(png) == desktop_png) << "the exported PNGs differ";
}

TEST_F(ReplayTest, CancelStopsTheWorkAndKeepsThePreviousResults) {
  read_example("gh_overnight_5min.dat");
  trigger("Mode/ApEn");
  auto* cycles = qobject_cast<QLineEdit*>(window().mode_panel()->editors()->editor("MC Cycles"));
  cycles->setText("20");
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const std::string listing = (work_ / "before.lst").string();
  files_to_choose = {listing};
  trigger("Results/Current Listing/Rename");
  const std::string before = Scratch::read(listing);
  ASSERT_FALSE(before.empty());

  cycles->setText("1000000");
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  QPushButton* cancel = window().cancel_button();
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!cancel->isVisible() && std::chrono::steady_clock::now() < until)
    QApplication::processEvents(QEventLoop::AllEvents, 10);
  ASSERT_TRUE(cancel->isVisible()) << "the progress bar and Cancel did not appear";
  // The window answers while the work runs.
  EXPECT_FALSE(desktop_->idle());
  cancel->click();
  settle();
  EXPECT_FALSE(cancel->isVisible());
  EXPECT_NE(std::find(titles_seen.begin(), titles_seen.end(), "Error Reported by ApEn"),
            titles_seen.end());
  const std::string after = (work_ / "after.lst").string();
  files_to_choose = {after};
  trigger("Results/Current Listing/Rename");
  EXPECT_EQ(Scratch::read(after), before);
}

TEST_F(ReplayTest, SpreadsheetGridIssuesItsCommands) {
  read_example("lh_24h_10min.dat");
  trigger("Tools/Data SpreadSheet");
  gui::SheetView* sheet = window().sheet_view();
  QTableWidget* grid = sheet->table();
  ASSERT_GT(grid->rowCount(), 3);
  const std::string label = grid->horizontalHeaderItem(2)->text().toStdString();
  grid->item(2, 2)->setText("5");  // row 3 of the concentration column
  settle();
  const auto all = commands();
  ASSERT_GE(all.size(), 2u);
  EXPECT_EQ(all[all.size() - 2], "SPREADSHEET_FUNCTION= " + label + "(3:3) = 5");
  EXPECT_EQ(all.back(), "SPREADSHEET");
  EXPECT_DOUBLE_EQ(sheet->table()->item(2, 2)->text().toDouble(), 5.0);

  const int rows = sheet->table()->rowCount();
  sheet->spin("Bin Size")->setValue(3);
  sheet->findChild<QPushButton*>("Average")->click();
  settle();
  const auto after = commands();
  ASSERT_GE(after.size(), 3u);
  EXPECT_EQ(after[after.size() - 3], "SET Bin Size = 3");
  EXPECT_EQ(after[after.size() - 2], "SPREADSHEET_AVERAGE");
  // Bins of three rows: a partial last bin still makes a row.
  EXPECT_EQ(sheet->table()->rowCount(), (rows + 2) / 3);

  sheet->formula()->setText(QString::fromStdString("SEM = 0.1*" + label));
  sheet->findChild<QPushButton*>("Evaluate")->click();
  settle();
  EXPECT_EQ(commands()[commands().size() - 2], "SPREADSHEET_FUNCTION= SEM = 0.1*" + label);
  sheet->findChild<QPushButton*>("Accept Changes")->click();
  sheet->findChild<QPushButton*>("Finish")->click();
  settle();
  EXPECT_EQ(last_command(), "SPREADSHEET_FINISH");
  EXPECT_TRUE(window().session().data_sets[0].modified);
}

}  // namespace
}  // namespace tidemark::testing_support
