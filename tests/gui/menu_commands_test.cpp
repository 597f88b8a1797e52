// Menu entries, tool-bar items and the graph view's buttons issue the commands a
// command file would hold: each is read back from the run's command history.
#include <QCheckBox>
#include <QComboBox>
#include <QMenuBar>
#include <QPushButton>

#include "desktop_fixture.h"
#include "gui/graph_view.h"
#include "gui/mode_panel.h"

namespace tidemark::testing_support {
namespace {

using MenuCommandsTest = DesktopTest;

// An entry that writes a file: the chooser is answered with a name in the working
// folder, and the history records the command with that name in double quotes.
struct FileEntry {
  const char* path;
  const char* command;
  const char* file;
};

TEST_F(MenuCommandsTest, EntriesThatWriteAFileRecordTheChosenName) {
  read_example("lh_24h_10min.dat");
  trigger("Mode/Cluster8");
  window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
  settle();
  const FileEntry entries[] = {
      {"File/Write a Data File/Native Mode", "WRITE_NATIVE", "out.dat"},
      {"File/Write a Data File/CSV Mode", "WRITE_CSV", "out.csv"},
      {"File/Write Summary Books (csv)", "WRITE_SUMMARY_BOOKS", "books.csv"},
      {"Results/Log File/Rename", "SAVE_AS_LOG", "copy.log"},
      {"Results/Current Answers/Rename", "SAVE_AS_BST", "copy.bst"},
      {"Results/Command History/Rename", "SAVE_AS_CMD", "copy.bat"},
      {"Results/Current Listing/Rename", "SAVE_AS_LST", "copy.lst"},
      {"Graphics/Save As/ASCII (*.grf)", "SAVE_GRF_ASCII", "copy.grf"},
      {"Graphics/Save As/PCX/BMP/PNG", "SAVE_GRF_PNG", "graph.png"},
      {"Graphics/Save As/SVG", "SAVE_GRF_SVG", "graph.svg"},
      {"Graphics/Save As/PDF", "SAVE_GRF_PDF", "graph.pdf"},
      {"Graphics/Save As/PostScript", "SAVE_GRF_PS", "graph.ps"},
  };
  for (const FileEntry& e : entries) {
    const std::string target = (work_ / e.file).string();
    files_to_choose.push_back(target);
    trigger(e.path);
    EXPECT_EQ(last_command(), std::string(e.command) + " \"" + target + "\"") << e.path;
    EXPECT_TRUE(std::filesystem::exists(target)) << e.path;
  }
}

TEST_F(MenuCommandsTest, ReadModeSelectSpreadsheetAndReset) {
  const std::string lh = example("lh_24h_10min.dat");
  files_to_choose.push_back(lh);
  trigger("File/Read a Data File/Native Mode");
  EXPECT_EQ(last_command(), "READ_NATIVE \"" + lh + "\"");
  EXPECT_TRUE(window().action("File/Write Summary Books (csv)")->isEnabled());
  read_example("gh_overnight_5min.dat");
  ASSERT_EQ(window().session().data_sets.size(), 2u);

  // Data_Select names every data set; its first entry selects the first.
  const auto entries = window().menuBar()->findChildren<QMenu*>();
  QMenu* data = nullptr;
  for (QMenu* m : entries) {
    if (m->title() == "Data_Select") data = m;
  }
  ASSERT_NE(data, nullptr);
  ASSERT_EQ(data->actions().size(), 2);
  data->actions()[0]->trigger();
  settle();
  EXPECT_EQ(last_command(), "SELECT \"" + window().session().data_sets[0].handle + "\"");

  const std::pair<const char*, const char*> plain[] = {
      {"Mode/Cosine", "MODE Cosine"},
      {"Mode/ApEn", "MODE ApEn"},
      {"Tools/Data SpreadSheet", "SPREADSHEET"},
      {"File/Reset the Program", "RESET"},
  };
  for (const auto& [path, command] : plain) {
    trigger(path);
    EXPECT_EQ(last_command_but_sets(), command) << path;
  }
  EXPECT_TRUE(window().session().data_sets.empty());
  EXPECT_FALSE(window().action("File/Write Summary Books (csv)")->isEnabled());
}

TEST_F(MenuCommandsTest, AlgorithmListAndModeMenuFollowTheModeTable) {
  auto* algorithm = window().findChild<QComboBox*>("Algorithm");
  ASSERT_NE(algorithm, nullptr);
  ASSERT_EQ(algorithm->count(), 1 + shell::kModeCount);
  for (int i = 1; i <= shell::kModeCount; ++i) {
    EXPECT_EQ(algorithm->itemText(i).toStdString(), shell::mode_info(i).name);
    EXPECT_NE(window().action("Mode/" + std::string(shell::mode_info(i).name)), nullptr);
  }
  algorithm->activated(13);
  settle();
  EXPECT_EQ(last_command(), "MODE SRQuant");
}

TEST_F(MenuCommandsTest, FolderBatchFileAndGraphSteps) {
  const auto folder = work_ / "sub";
  std::filesystem::create_directories(folder);
  files_to_choose.push_back(folder.string());
  trigger("Tools/Change Default Folder (CD)");
  EXPECT_EQ(last_command(), "CD \"" + folder.string() + "\"");

  const std::string grf = (std::filesystem::path(TIDEMARK_FIXTURES) / "graphics/styles.grf").string();
  const auto batch = scratch_.write("two.bat", "LOAD_GRF \"" + grf + "\"\nMODE Cosine\n");
  files_to_choose.push_back(batch.string());
  trigger("File/Run a Batch File (@)");
  EXPECT_EQ(last_command(), "MODE Cosine");

  const std::string series = (std::filesystem::path(TIDEMARK_FIXTURES) / "graphics/pulse_series.grf").string();
  files_to_choose.push_back(series);
  trigger("Graphics/Load a Graphics Source File");
  EXPECT_EQ(last_command(), "LOAD_GRF \"" + series + "\"");
  trigger("Graphics/Previous Image");
  EXPECT_EQ(last_command(), "PREVIOUS_GRAPH");
  window().graph_view()->findChild<QPushButton*>("Next")->click();
  settle();
  EXPECT_EQ(last_command(), "NEXT_GRAPH");
  EXPECT_TRUE(window().graph_view()->canvas()->plot().has_value());
}

TEST_F(MenuCommandsTest, GraphOptionsAreCheckBoxesThatIssueGrfOption) {
  const auto boxes = cluster8_option_boxes();
  ASSERT_FALSE(boxes.empty());
  QCheckBox* box = boxes.front();
  const bool was = box->isChecked();
  const std::string label = box->text().toStdString();
  box->click();  // the graph is drawn again, with new check boxes
  settle();
  EXPECT_EQ(last_command(), "GRF_OPTION \"" + label + "\" " + (was ? "OFF" : "ON"));
  ASSERT_NE(option_box(label), nullptr);
  EXPECT_EQ(option_box(label)->isChecked(), !was);
}

TEST_F(MenuCommandsTest, ExitAsksAndNoKeepsTheProgramRunning) {
  read_example("lh_24h_10min.dat");
  answer_yes = false;
  trigger("File/Exit");
  EXPECT_FALSE(desktop_->finished());
  EXPECT_NE(last_command(), "EXIT");
  EXPECT_NE(std::find(titles_seen.begin(), titles_seen.end(), "Terminate the Program"),
            titles_seen.end());
  answer_yes = true;
  window().close();  // the window's close box issues EXIT too
  settle();
  EXPECT_TRUE(desktop_->finished());
  EXPECT_EQ(last_command(), "EXIT");
}

TEST_F(MenuCommandsTest, ChoosersCarryTheirTitles) {
  trigger("File/Read a Data File/Native Mode");  // cancelled: nothing chosen
  EXPECT_NE(std::find(titles_seen.begin(), titles_seen.end(),
                      "Select a name for the native mode input file"),
            titles_seen.end());
  EXPECT_TRUE(commands().empty());
}

}  // namespace
}  // namespace tidemark::testing_support
