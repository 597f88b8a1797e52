#include "graphics/plot_parser.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/missing.h"
#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::graphics {
namespace {

struct BadSource {
  const char* source;
  const char* message;
};

// Each message is what docs/plot-language.md says the reader answers, with the line
// number counted by hand in the source.
const BadSource kBadSources[] = {
    {"PANEL \"a\"\nXAXIS \"t\" LOG RANGE 0 10\n",
     "line 2: XAXIS: a LOG axis needs a positive range"},
    {"PANEL \"a\"\nYAXIS \"c\" RANGE 5 5\n", "line 2: YAXIS: RANGE needs low < high"},
    {"PANEL \"a\"\nYAXIS \"c\" TICKS -1\n", "line 2: YAXIS: the tick step must be positive"},
    {"XAXIS \"t\"\n", "line 1: XAXIS before the first PANEL"},
    {"PANEL \"a\"\nSERIES \"s\"\nSYMBOL HEXAGON\n", "line 3: SYMBOL: unknown symbol \"HEXAGON\""},
    {"PANEL \"a\"\nSERIES \"s\"\nSYMBOL CIRCLE 31\n",
     "line 3: SYMBOL: the symbol size must be from 1 to 30"},
    {"PANEL \"a\"\nSERIES \"s\"\nCOLOR #12345G\n", "line 3: COLOR: unknown colour \"#12345G\""},
    {"PANEL \"a\"\n1 2\n", "line 2: data row outside DATA ... END"},
    {"PANEL \"a\"\nSERIES \"s\"\nDATA\n1 2 3 4\nEND\n",
     "line 4: data row: expected 2 or 3 values, found 4"},
    {"PANEL \"a\"\nSERIES \"s\"\nDATA\n1 x\nEND\n",
     "line 4: data row: expected a number or MISSING, found \"x\""},
    {"PANEL \"a\"\nSERIES \"s\"\nDATA\n1 2\nSYMBOL CIRCLE\nEND\n",
     "line 5: statement inside DATA ... END (END missing?)"},
    {"PANEL \"a\"\nSERIES \"s\"\nDATA\n1 2\n",
     "line 4: series \"s\" still open at the end (END missing)"},
    {"PANEL \"a\"\nSERIES \"s\"\nLINE SOLID\nLINE DASH\n",
     "line 4: LINE given twice in series \"s\""},
    {"PANEL \"a\"\nSERIES \"s\"\nSTEPS\nBARS\n", "line 4: STEPS and BARS exclude each other"},
    {"PANEL \"a\"\nSERIES \"s\"\nPANEL \"b\"\n",
     "line 3: PANEL inside SERIES \"s\" (DATA ... END missing?)"},
    {"SYMBOL CIRCLE\n", "line 1: SYMBOL outside a series"},
    {"END\n", "line 1: END without SERIES and DATA"},
    {"PAGE \"a\"\nPAGE \"b\"\n", "line 2: PAGE given twice"},
    {"PAGE \"a\n", "line 1: unterminated text (closing \" missing)"},
    {"PAGE a\n", "line 1: PAGE: expected the page title in double quotes, found \"a\""},
    {"PAGE\n", "line 1: PAGE: expected the page title in double quotes"},
    {"PAGE \"a\" \"b\"\n", "line 1: PAGE: unexpected \"b\""},
    {"PLOT \"a\"\n", "line 1: unknown statement \"PLOT\""},
    {"\"a\"\n", "line 1: expected a statement, found the text \"a\""},
    {"TEXT PAGE 1.5 0 \"x\"\n", "line 1: TEXT: page positions must be from 0 to 1"},
    {"PANEL \"a\"\nCROSSHAIR 1 2 -3 4\n", "line 2: CROSSHAIR: dx and dy must not be negative"},
    {"PANEL \"a\" HEIGHT 20\n", "line 1: PANEL: HEIGHT must be from 0.1 to 10"},
    {"PANEL \"a\"\nXAXIS \"t\" RANGE 1 inf\n",
     "line 2: XAXIS: expected the high end of the range, found \"inf\""},
    {"PANEL \"a\"\nXAXIS \"t\" RANGE 1 1e999\n",
     "line 2: XAXIS: expected the high end of the range, found \"1e999\""},
    {"#ENDIF\n", "line 1: #ENDIF without an open #IFCHECKED or #IF.NOT.CHECKED"},
    {"! c\n#IFCHECKED \"A\"\nPAGE \"x\"\n",
     "line 2: #IFCHECKED \"A\" still open at the end of the source (#ENDIF missing)"},
    {"#IFCHECKED A\n#ENDIF\n", "line 1: #IFCHECKED needs the option's label in double quotes"},
    {"#IFCHECKED \"A\" MAYBE\n#ENDIF\n",
     "line 1: #IFCHECKED: expected CHECKED or .NOT.CHECKED, found \"MAYBE\""},
    {"#IFCHECKED \"A\" CHECKED\n#ENDIF\n#IF.NOT.CHECKED \"A\" .NOT.CHECKED\n#ENDIF\n",
     "line 3: option \"A\" is .NOT.CHECKED here but CHECKED on line 1"},
    {"#IFCHECKED \"\"\n#ENDIF\n", "line 1: #IFCHECKED: the option's label is empty"},
    {"NOTE\n", "line 1: NOTE: expected the note text in double quotes"},
    {"NOTE 12\n", "line 1: NOTE: expected the note text in double quotes, found \"12\""},
    {"NOTE \"a\" LEFT\n", "line 1: NOTE: unexpected \"LEFT\""},
    {"PANEL \"a\"\nSERIES \"s\"\nNOTE \"n\"\n",
     "line 3: NOTE inside SERIES \"s\" (DATA ... END missing?)"},
};

TEST(PlotParser, MalformedSourcesAreRefusedWithTheLineAndTheReason) {
  for (const BadSource& bad : kBadSources) {
    const PlotParseResult p = parse_plot(bad.source);
    EXPECT_FALSE(p.ok()) << bad.source;
    EXPECT_EQ(p.message, bad.message) << bad.source;
  }
}

TEST(PlotParser, ASyntaxErrorInAnUndrawnBlockIsStillFound) {
  const PlotParseResult p = parse_plot("#IFCHECKED \"A\" .NOT.CHECKED\nSYMBOL HEXAGON\n#ENDIF\n");
  EXPECT_EQ(p.message, "line 2: SYMBOL: unknown symbol \"HEXAGON\"");
}

TEST(PlotParser, AStatementOutOfPlaceInAnUndrawnBlockIsNotAnError) {
  EXPECT_TRUE(parse_plot("#IFCHECKED \"A\" .NOT.CHECKED\nSYMBOL CIRCLE\n#ENDIF\n").ok());
}

// A source with one series whose attributes stand in option blocks, nested once.
constexpr const char* kOptionSource =
    "PANEL \"p\"\n"
    "SERIES \"s\"\n"
    "#IFCHECKED \"Points\" CHECKED\n"
    "SYMBOL CIRCLE\n"
    "#IFCHECKED \"Bars\" .NOT.CHECKED\n"
    "ERRORBARS\n"
    "#ENDIF\n"
    "#ENDIF\n"
    "#IF.NOT.CHECKED \"Points\"\n"
    "LINE SOLID\n"
    "#endif\n"
    "DATA\n1 2 0.5\nEND\n";

TEST(PlotParser, OptionBlocksFollowTheirDefaultsAndTheStatesSet) {
  struct Case {
    OptionStates states;
    Symbol symbol;
    bool error_bars;
    Dash line;
  };
  // Read off the source by hand: the inner block needs both options checked; the
  // LINE block needs Points unchecked.
  const Case cases[] = {
      {{}, Symbol::kCircle, false, Dash::kNone},
      {{{"Bars", true}}, Symbol::kCircle, true, Dash::kNone},
      {{{"Points", false}, {"Bars", true}}, Symbol::kNone, false, Dash::kSolid},
      {{{"Unknown", false}}, Symbol::kCircle, false, Dash::kNone},
  };
  for (const Case& c : cases) {
    const PlotParseResult p = parse_plot(kOptionSource, c.states);
    ASSERT_TRUE(p.ok()) << p.message;
    const SeriesStyle& s = p.plot.panels.at(0).series.at(0).style;
    EXPECT_EQ(s.symbol, c.symbol);
    EXPECT_EQ(s.error_bars, c.error_bars);
    EXPECT_EQ(s.line, c.line);
    EXPECT_EQ(p.options, (std::vector<PlotOption>{{"Points", true}, {"Bars", false}}));
  }
}

TEST(PlotParser, NotesStandAnywhereOutsideASeriesAndKeepTheirOrder) {
  const PlotParseResult p = parse_plot(
      "NOTE \"first\"\nPAGE \"t\"\nPANEL \"a\"\nnote \"the \"\"second\"\"\"\n"
      "#IFCHECKED \"Extra\" .NOT.CHECKED\nNOTE \"hidden\"\n#ENDIF\n"
      "PANEL \"b\"\nSERIES \"s\"\nDATA\nEND\nNOTE \"\"\nNOTE \"last\"\n");
  ASSERT_TRUE(p.ok()) << p.message;
  EXPECT_EQ(p.plot.notes, (std::vector<std::string>{"first", "the \"second\"", "", "last"}));
}

TEST(PlotParser, NotesBeyondTheCapAreRefusedButUndrawnOnesDoNotCount) {
  std::string sixteen;
  for (int i = 1; i <= 16; ++i) sixteen += fmt::format("NOTE \"{}\"\n", i);
  // Sixteen notes on lines 1 to 16, the seventeenth on line 17.
  EXPECT_EQ(parse_plot(sixteen + "NOTE \"17\"\n").message, "line 17: more than 16 notes");
  const PlotParseResult p =
      parse_plot(sixteen + "#IFCHECKED \"More\" .NOT.CHECKED\nNOTE \"17\"\n#ENDIF\n");
  ASSERT_TRUE(p.ok()) << p.message;
  EXPECT_EQ(p.plot.notes.size(), 16u);
}

TEST(PlotParser, ReadsBackExactlyWhatTheWriterWrote) {
  // Values chosen to need every digit of their shortest forms; missing in each column.
  const std::vector<float> x = {0.1f, 1e-7f, 3.4028235e38f, core::kMissingF};
  const std::vector<float> y = {-2.5f, core::kMissingF, 16777216.0f, 1.0f};
  const std::vector<float> e = {0.3f, 0.0f, core::kMissingF, 2.0f};
  PlotWriter w;
  w.page("Title with \"quotes\"");
  w.note("Note with \"quotes\"");
  w.panel("P", 2.5);
  w.x_axis({.label = "t", .low = -1.0, .high = 1e9, .tick_step = 0.25});
  w.y_axis({.label = "c", .scale = Scale::kLog});
  w.series("S",
           {.symbol = Symbol::kDiamond,
            .symbol_size = 6,
            .line = Dash::kDashDot,
            .line_width = 0.5,
            .colour = Colour::rgb_of(0x123456),
            .error_bars = true,
            .bars = true,
            .bar_width = 7,
            .mark_missing = true},
           x, y, e);
  w.vline(0.1, "v");
  w.crosshair(1, 2, 3, 4);
  w.text_at_data(5, 6, "d", Align::kRight);
  w.text_at_page(0.25, 0.75, "p", Align::kCenter);
  const PlotParseResult p = parse_plot(w.text());
  ASSERT_TRUE(p.ok()) << p.message;
  EXPECT_EQ(p.plot.title, "Title with \"quotes\"");
  EXPECT_EQ(p.plot.notes, (std::vector<std::string>{"Note with \"quotes\""}));
  ASSERT_EQ(p.plot.panels.size(), 1u);
  const Panel& panel = p.plot.panels[0];
  EXPECT_EQ(panel.height, 2.5);
  EXPECT_EQ(panel.x_axis.low, -1.0);
  EXPECT_EQ(panel.x_axis.high, 1e9);
  EXPECT_EQ(panel.x_axis.tick_step, 0.25);
  EXPECT_EQ(panel.y_axis.scale, Scale::kLog);
  const Series& s = panel.series.at(0);
  EXPECT_EQ(s.style.symbol, Symbol::kDiamond);
  EXPECT_EQ(s.style.symbol_size, 6);
  EXPECT_EQ(s.style.line, Dash::kDashDot);
  EXPECT_EQ(s.style.line_width, 0.5);
  EXPECT_EQ(s.style.colour, Colour::rgb_of(0x123456));
  EXPECT_TRUE(s.style.error_bars && s.style.bars && s.style.mark_missing);
  EXPECT_EQ(s.style.bar_width, 7);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto same = [](float written, double read) {
      return core::is_missing(written) ? core::is_missing(read)
                                       : static_cast<float>(read) == written;
    };
    EXPECT_TRUE(same(x[i], s.x[i])) << i;
    EXPECT_TRUE(same(y[i], s.y[i])) << i;
    EXPECT_TRUE(same(e[i], s.err[i])) << i;
  }
  EXPECT_EQ(panel.markers.at(0).x, 0.1);
  EXPECT_EQ(panel.markers.at(0).label, "v");
  EXPECT_EQ(panel.crosshairs.at(0).dy, 4);
  EXPECT_EQ(panel.texts.at(0).align, Align::kRight);
  EXPECT_EQ(p.plot.page_texts.at(0).y, 0.75);
}

TEST(PlotParser, CommentsBlankLinesCaseAndLineEndingsDoNotMatter) {
  const PlotParseResult p = parse_plot(
      "\xEF\xBB\xBF! heading\r\n\r\n  panel \"a\" ! the only panel\r\n"
      "series \"s!\"\r\n\tsymbol circle\r\ndata\r\n1 missing\r\n+2 -1.5e35\r\n.5 3\r\nend");
  ASSERT_TRUE(p.ok()) << p.message;
  const Series& s = p.plot.panels.at(0).series.at(0);
  EXPECT_EQ(s.name, "s!");
  EXPECT_EQ(s.x, (std::vector<double>{1, 2, 0.5}));
  EXPECT_TRUE(core::is_missing(s.y[0]) && core::is_missing(s.y[1]));
  EXPECT_TRUE(core::is_missing(s.err[2]));  // no third value
}

TEST(PlotParser, SeriesAreNumberedWithinTheirPanel) {
  const PlotParseResult p = parse_plot(
      "PANEL \"a\"\nSERIES \"1\"\nDATA\nEND\nSERIES \"2\"\nDATA\nEND\n"
      "PANEL \"b\"\nSERIES \"3\"\nDATA\nEND\n");
  ASSERT_TRUE(p.ok()) << p.message;
  EXPECT_EQ(p.plot.panels[0].series[1].index, 1);
  EXPECT_EQ(p.plot.panels[1].series[0].index, 0);
}

TEST(PlotParser, TheCommonOptionsReadBackWithTheirDefaults) {
  const std::vector<float> x = {0, 10}, y = {1, 2}, sd = {0.1f, 0.2f};
  const std::vector<double> positions = {5};
  PlotWriter w;
  w.panel("p");
  write_common_options(
      w, {.file_name = "F", .handle = "H", .x = x, .y = y, .sd = sd, .positions = positions});
  const PlotParseResult p = parse_plot(w.text(), {{"Show File Handle", false}});
  ASSERT_TRUE(p.ok()) << p.message;
  ASSERT_EQ(p.options.size(), 8u);
  EXPECT_EQ(p.options[0], (PlotOption{"Log Concentration Scale", false}));
  EXPECT_EQ(p.plot.panels[0].y_axis.scale, Scale::kLinear);
  ASSERT_EQ(p.plot.page_texts.size(), 1u);  // the handle is switched off
  EXPECT_EQ(p.plot.page_texts[0].text, "F");
  EXPECT_EQ(p.plot.panels[0].markers.size(), 1u);
}

}  // namespace
}  // namespace tidemark::graphics
