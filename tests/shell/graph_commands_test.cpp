// The graph view's commands in a session: loading, the series of graphs, the option
// states, the exports and the settings file. Expected messages and log lines are those
// docs/plot-language.md gives; expected drawings are counted in the SVG files.
#include "shell/graph_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "render/svg_shapes.h"
#include "shell/session_fixture.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

const fs::path kStyles = fs::path(TIDEMARK_FIXTURES) / "graphics" / "styles.grf";
// One panel: its page keeps the size the settings give (a page of many panels grows).
const fs::path kOnePanel = fs::path(TIDEMARK_FIXTURES) / "graphics" / "pulse_series.grf";

// A one-panel source whose three #123456 squares stand in an option block.
constexpr const char* kOptionSource =
    "PANEL \"p\"\n#IFCHECKED \"Extra\" .NOT.CHECKED\nSERIES \"s\"\nSYMBOL SQUARE\n"
    "COLOR #123456\nDATA\n1 1\n2 2\n3 3\nEND\n#ENDIF\n";

class GraphCommands : public ::testing::Test {
 protected:
  GraphCommands() { fixture.session->set_graphics(shell::make_graph_view()); }

  void run(std::vector<std::string> commands) { fixture.run(std::move(commands)); }
  std::string quoted(const fs::path& p) const { return "\"" + p.string() + "\""; }
  std::string run_graph() const { return Scratch::read(fixture.session->files().graph_path()); }
  bool shown(const std::string& line) const {
    const auto lines = fixture.ui.shown();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }
  bool logged(const std::string& line) const {
    const auto lines = fixture.log();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  SessionFixture fixture;
  Scratch dir;
};

TEST_F(GraphCommands, EveryExportFormatIsWrittenAndLogged) {
  struct Case {
    const char* command;
    const char* file;
    std::string signature;
    const char* log_text;
  };
  const Case cases[] = {
      {"SAVE_GRF_PNG", "g.png", "\x89PNG", "SAVE THE GRAPHICS AS PCX/BMP/PNG "},
      {"SAVE_GRF_SVG", "g.svg", "<?xml", "SAVE THE GRAPHICS AS SVG "},
      {"SAVE_GRF_PDF", "g.pdf", "%PDF-", "SAVE THE GRAPHICS AS PDF "},
      {"SAVE_GRF_PS", "g.ps", "%!PS-Adobe-3.0\n", "SAVE THE GRAPHICS AS POSTSCRIPT "},
      {"SAVE_GRF_PS", "g.eps", "%!PS-Adobe-3.0 EPSF", "SAVE THE GRAPHICS AS POSTSCRIPT "},
  };
  std::vector<std::string> commands = {"LOAD_GRF " + quoted(kStyles)};
  for (const Case& c : cases)
    commands.push_back(std::string(c.command) + " " + quoted(dir / c.file));
  run(commands);
  EXPECT_FALSE(fixture.session->failed());
  EXPECT_EQ(fixture.history(), commands);
  EXPECT_TRUE(logged("LOAD A GRAPHIC FILE " + kStyles.string()));
  EXPECT_EQ(run_graph(), Scratch::read(kStyles));
  for (const Case& c : cases) {
    const std::string bytes = Scratch::read(dir / c.file);
    EXPECT_EQ(bytes.substr(0, c.signature.size()), c.signature) << c.file;
    EXPECT_TRUE(logged(c.log_text + (dir / c.file).string())) << c.file;
  }
}

TEST_F(GraphCommands, AMalformedSourceIsReadFailedAndThePreviousGraphStays) {
  const auto bad = dir.write("bad.grf", "PANEL \"p\"\nSYMBOL CIRCLE\n");
  run({"LOAD_GRF " + quoted(kStyles), "LOAD_GRAF " + quoted(bad),
       "LOAD_GRF " + quoted(dir / "absent.grf")});
  EXPECT_TRUE(shown("Graphics: READ FAILED"));
  EXPECT_TRUE(shown("Graphics: " + bad.string() + ": line 2: SYMBOL outside a series"));
  EXPECT_TRUE(shown("Graphics: " + (dir / "absent.grf").string() + ": the file cannot be read"));
  EXPECT_TRUE(fixture.session->failed());
  EXPECT_EQ(run_graph(), Scratch::read(kStyles));
  EXPECT_EQ(fixture.history().size(), 1u);  // only the load that worked
}

TEST_F(GraphCommands, GraphsOfTheRunAreSteppedThroughAndTheRunGraphFileFollows) {
  const auto a = dir.write("a.grf", "PAGE \"a\"\n");
  const std::string by_mode = "PAGE \"written by a mode\"\n";
  run({"LOAD_GRF " + quoted(a)});
  // A mode writes its graph to the run's graph file; the next command sees it.
  std::ofstream(fixture.session->files().graph_path(), std::ios::binary) << by_mode;
  run({"PREVIOUS_GRAPH"});
  EXPECT_EQ(run_graph(), Scratch::read(a));
  run({"PREVIOUS_GRAPH"});
  EXPECT_TRUE(shown("Graphics: There is no previous graph."));
  run({"NEXT_GRAPH"});
  EXPECT_EQ(run_graph(), by_mode);
  run({"NEXT_GRAPH"});
  EXPECT_TRUE(shown("Graphics: There is no next graph."));
  EXPECT_TRUE(logged("PROCEED TO THE PREVIOUS GRAPH"));
  EXPECT_TRUE(logged("PROCEED TO THE NEXT GRAPH"));
}

TEST_F(GraphCommands, GrfOptionSwitchesTheBlocksOfTheGraphsDrawn) {
  const auto source = dir.write("o.grf", kOptionSource);
  run({"LOAD_GRF " + quoted(source), "SAVE_GRF_SVG " + quoted(dir / "off.svg"),
       "grf_option \"Extra\" on", "SAVE_GRF_SVG " + quoted(dir / "on.svg"), "GRF_OPTION \"Extra\"",
       "GRF_OPTION \"Unknown\" OFF"});
  EXPECT_EQ(closed_subpaths(Scratch::read(dir / "off.svg"), kCountedFill), 0);
  EXPECT_EQ(closed_subpaths(Scratch::read(dir / "on.svg"), kCountedFill), 3);
  EXPECT_EQ(fixture.history().at(2), "GRF_OPTION \"Extra\" ON");
  EXPECT_TRUE(logged("GRAPH OPTION \"Extra\" ON"));
  EXPECT_TRUE(
      shown("Graphics: GRF_OPTION needs an option's label in double quotes and ON or OFF."));
  EXPECT_TRUE(
      shown("Graphics: The current graph has no option \"Unknown\"; the setting is "
            "kept for the graphs that have it."));
}

TEST_F(GraphCommands, CommandsThatNeedAGraphSayThereIsNone) {
  run({"SAVE_GRF_PNG " + quoted(dir / "x.png"), "PRINT_GRF", "NEXT_GRAPH"});
  EXPECT_TRUE(shown("Graphics: There is no graph to save."));
  EXPECT_TRUE(shown("Graphics: There is no next graph."));
  EXPECT_FALSE(fs::exists(dir / "x.png"));
}

// A source named like its own drawing (graph.png with the default format PNG) would be
// drawn over; the view refuses and the source stays as it was.
TEST_F(GraphCommands, GrfViewNeverDrawsOverItsOwnSource) {
  const auto source = dir.write("graph.png", kOptionSource);
  run({"GRF_VIEW " + quoted(source)});
  EXPECT_EQ(Scratch::read(source), kOptionSource);
  EXPECT_TRUE(shown("Graphics: " + source.string() + ": the drawing would replace its source"));
  EXPECT_TRUE(fixture.session->failed());
  EXPECT_TRUE(fixture.history().empty());
}

// The width and height of a PNG file, from its header.
std::pair<int, int> png_size(const std::string& png) {
  const auto be32 = [&](std::size_t at) {
    int v = 0;
    for (std::size_t i = 0; i < 4; ++i) v = v * 256 + static_cast<unsigned char>(png.at(at + i));
    return v;
  };
  return {be32(16), be32(20)};
}

TEST_F(GraphCommands, SettingsFileSetsThePageAndBadValuesAreReported) {
  const fs::path ini = fixture.session->folders().system / "grf_view.ini";
  std::ofstream(ini) << "; test\nWidth=360\nheight = 288\nDpi=72\nFont_Size=abc\nFormat=TIFF\n";
  run({"LOAD_GRF " + quoted(kOnePanel), "SAVE_GRF_PNG " + quoted(dir / "small.png")});
  // 360 x 288 points at 72 dpi: one pixel per point.
  EXPECT_EQ(png_size(Scratch::read(dir / "small.png")), std::make_pair(360, 288));
  EXPECT_TRUE(
      shown("Graph View Settings: grf_view.ini: Font_Size=abc is not a number from 4 "
            "to 48; 11 is used"));
  EXPECT_TRUE(
      shown("Graph View Settings: grf_view.ini: Format=TIFF is not PNG, SVG, PDF, PS "
            "or EPS; PNG is used"));
}

TEST_F(GraphCommands, AMissingSettingsFileIsWrittenWithTheDefaults) {
  run({"LOAD_GRF " + quoted(kOnePanel), "SAVE_GRF_PNG " + quoted(dir / "default.png")});
  const std::string ini = Scratch::read(fixture.session->folders().system / "grf_view.ini");
  EXPECT_NE(ini.find("Width=720\nHeight=540\nDpi=144\n"), std::string::npos) << ini;
  // 720 x 540 points at 144 dpi: two pixels per point.
  EXPECT_EQ(png_size(Scratch::read(dir / "default.png")), std::make_pair(1440, 1080));
}

}  // namespace
}  // namespace tidemark::testing_support
