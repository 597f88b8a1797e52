#include "shell/graph_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/file_replace.h"
#include "core/text.h"
#include "graphics/plot_parser.h"
#include "render/renderer.h"
#include "shell/command_table.h"
#include "shell/command_text.h"
#include "shell/external.h"
#include "shell/file_ops.h"
#include "shell/graph_series.h"
#include "shell/graph_settings.h"

namespace tidemark::shell {

namespace {

namespace fs = std::filesystem;
using render::Format;

constexpr std::string_view kTitle = "Graphics";
constexpr std::string_view kGrfFilter = "ASCII Graphic Files (*.grf)|*.grf|All Files (*.*)|*.*|";

// What each SAVE_GRF_ command writes, and the start of its log line.
struct Export {
  std::string_view name;
  Format format;
  std::string_view chooser_title;
  std::string_view filter;
  std::string_view log_text;
};

constexpr std::array<Export, 4> kExports{{
    {"SAVE_GRF_PNG", Format::kPng, "Select a name for the PNG file",
     "PNG Files (*.png)|*.png|All Files (*.*)|*.*|", "SAVE THE GRAPHICS AS PCX/BMP/PNG "},
    {"SAVE_GRF_SVG", Format::kSvg, "Select a name for the SVG file",
     "SVG Files (*.svg)|*.svg|All Files (*.*)|*.*|", "SAVE THE GRAPHICS AS SVG "},
    {"SAVE_GRF_PDF", Format::kPdf, "Select a name for the PDF file",
     "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*|", "SAVE THE GRAPHICS AS PDF "},
    {"SAVE_GRF_PS", Format::kPs, "Select a name for the PostScript file",
     "PostScript Files (*.ps;*.eps)|*.ps;*.eps|All Files (*.*)|*.*|",
     "SAVE THE GRAPHICS AS POSTSCRIPT "},
}};

std::string_view extension_of(Format f) {
  switch (f) {
    case Format::kPng:
      return ".png";
    case Format::kSvg:
      return ".svg";
    case Format::kPdf:
      return ".pdf";
    case Format::kPs:
      return ".ps";
    case Format::kEps:
      break;
  }
  return ".eps";
}

class GraphView : public CommandHandler {
 public:
  bool handle(std::string_view command, Session& session) override {
    watch(session);
    using Command = NamedCommand<GraphView, Session>;
    static constexpr std::array<Command, 14> kCommands{{
        {"LOAD_GRF",
         [](std::string_view c, GraphView& v, Session& s) { v.load_command(c, "LOAD_GRF", s); }},
        {"LOAD_GRAF",
         [](std::string_view c, GraphView& v, Session& s) { v.load_command(c, "LOAD_GRAF", s); }},
        {"GRF_VIEW", [](std::string_view c, GraphView& v, Session& s) { v.view_command(c, s); }},
        {"PRINT_GRF", [](std::string_view c, GraphView& v, Session& s) { v.print_command(c, s); }},
        {"PRINT_GRAF", [](std::string_view c, GraphView& v, Session& s) { v.print_command(c, s); }},
        {"!EDIT_GRF", [](std::string_view c, GraphView& v, Session& s) { v.edit_command(c, s); }},
        {"SAVE_GRF_PNG",
         [](std::string_view c, GraphView& v, Session& s) { v.save_command(c, kExports[0], s); }},
        {"SAVE_GRF_SVG",
         [](std::string_view c, GraphView& v, Session& s) { v.save_command(c, kExports[1], s); }},
        {"SAVE_GRF_PDF",
         [](std::string_view c, GraphView& v, Session& s) { v.save_command(c, kExports[2], s); }},
        {"SAVE_GRF_PS",
         [](std::string_view c, GraphView& v, Session& s) { v.save_command(c, kExports[3], s); }},
        {"SAVE_GRF_CLIP",
         [](std::string_view c, GraphView&, Session& s) {
           s.error(kTitle, {"There is no clipboard in the headless program.", std::string(c)});
         }},
        {"GRF_OPTION",
         [](std::string_view c, GraphView& v, Session& s) { v.option_command(c, s); }},
        {"NEXT_GRAPH", [](std::string_view c, GraphView& v,
                          Session& s) { v.step_command(c, +1, "PROCEED TO THE NEXT GRAPH", s); }},
        {"PREVIOUS_GRAPH",
         [](std::string_view c, GraphView& v, Session& s) {
           v.step_command(c, -1, "PROCEED TO THE PREVIOUS GRAPH", s);
         }},
    }};
    return dispatch(kCommands, command, *this, session);
  }

 private:
  const GraphSettings& settings(Session& session) {
    if (!settings_) {
      std::vector<std::string> problems;
      settings_ = load_graph_settings(session.folders().system / "grf_view.ini", problems);
      if (!problems.empty()) session.inform("Graph View Settings", problems);
    }
    return *settings_;
  }

  // A graph that a mode has written to the run's graph file since the last look joins
  // the series. Only a changed size or time makes the file be read again.
  void watch(Session& session) {
    const fs::path& path = session.files().graph_path();
    std::error_code ec;
    const auto size = fs::file_size(path, ec);
    if (ec) return;
    const auto time = fs::last_write_time(path, ec);
    if (ec || (size == seen_size_ && time == seen_time_)) return;
    std::string text;
    if (!read_file(path, text)) return;
    seen_size_ = size;
    seen_time_ = time;
    if (text.empty() || (!series_.empty() && text == series_.current())) return;
    series_.add(std::move(text));
    session.ui().show_graph(path.string());
  }

  // Writes the graph now shown to the run's graph file and shows it; false, with a
  // message, when the file cannot be written.
  bool publish(Session& session) {
    const fs::path& path = session.files().graph_path();
    const core::ReplaceResult r = core::replace_file(path, series_.current());
    if (!r.ok()) {
      session.error(kTitle, {"The graph file could not be written: " + r.message});
      return false;
    }
    std::error_code ec;
    seen_size_ = fs::file_size(path, ec);
    seen_time_ = fs::last_write_time(path, ec);
    session.ui().show_graph(path.string());
    return true;
  }

  // The graph now shown, read with the option states set; no value, with a message
  // naming `action`, when there is none or it does not read.
  std::optional<graphics::Plot> current_plot(Session& session, std::string_view action) {
    if (series_.empty()) {
      session.error(kTitle, {"There is no graph to " + std::string(action) + "."});
      return std::nullopt;
    }
    graphics::PlotParseResult p = graphics::parse_plot(series_.current(), series_.states());
    if (!p.ok()) {
      session.error(kTitle, {"READ FAILED", "The current graph: " + p.message});
      return std::nullopt;
    }
    return std::move(p.plot);
  }

  // Reads `file` and makes it the graph shown; false, with "READ FAILED", when it
  // cannot be read or is not a graph source.
  bool load(const std::string& file, Session& session) {
    std::string text;
    if (!read_file(file, text)) {
      session.error(kTitle, {"READ FAILED", file + ": the file cannot be read"});
      return false;
    }
    const graphics::PlotParseResult p = graphics::parse_plot(text, series_.states());
    if (!p.ok()) {
      session.error(kTitle, {"READ FAILED", file + ": " + p.message});
      return false;
    }
    series_.add(std::move(text));
    return publish(session);
  }

  void load_command(std::string_view command, std::string_view name, Session& session) {
    const auto file = session.file_argument(
        command, name, {"Select a graphics source file", std::string(kGrfFilter), {}, false});
    if (!file || !load(*file, session)) return;
    session.carried_out(command_with_file(name, *file), "LOAD A GRAPHIC FILE " + *file);
  }

  // Renders the graph now shown into `target`; false, with a message, on failure
  // ("There is no graph to " + action + ".", when there is none).
  bool export_to(const fs::path& target, Format format, Session& session,
                 std::string_view action = "save") {
    const auto plot = current_plot(session, action);
    if (!plot) return false;
    const render::RenderResult r = render::render(*plot, format, settings(session).render);
    const std::string problem =
        r.ok() ? core::replace_file(target, r.bytes).message : r.message;
    if (!problem.empty()) {
      session.error(kTitle, {"The graph could not be written to " + target.string(), problem});
      return false;
    }
    return true;
  }

  void save_command(std::string_view command, const Export& e, Session& session) {
    const auto target =
        session.file_argument(command, e.name,
                              {std::string(e.chooser_title), std::string(e.filter),
                               "graph" + std::string(extension_of(e.format)), true});
    if (!target) return;
    const bool eps = e.format == Format::kPs && render::format_named(*target) == Format::kEps;
    const Format format = eps ? Format::kEps : e.format;
    if (!export_to(*target, format, session)) return;
    session.carried_out(command_with_file(e.name, *target), std::string(e.log_text) + *target);
  }

  // GRF_VIEW "file": loads the source and writes it beside itself in the settings'
  // default format (graph.grf -> graph.png); the command line's -grf_view. A source that
  // already has the format's extension is refused, since its drawing would replace it.
  void view_command(std::string_view command, Session& session) {
    const auto file = session.file_argument(
        command, "GRF_VIEW", {"Select a graphics source file", std::string(kGrfFilter), {}, false});
    if (!file) return;
    const Format format = settings(session).format;
    const fs::path target = fs::path(*file).replace_extension(extension_of(format));
    std::error_code ec;
    if (fs::equivalent(target, *file, ec)) {
      session.error(kTitle, {*file + ": the drawing would replace its source"});
      return;
    }
    if (!load(*file, session) || !export_to(target, format, session)) return;
    session.carried_out(command_with_file("GRF_VIEW", *file),
                        "LOAD A GRAPHIC FILE " + *file + ", DRAWN TO " + target.string());
  }

  void print_command(std::string_view command, Session& session) {
    const fs::path ps = session.temporary_file("GRF_", ".ps");
    if (!export_to(ps, Format::kPs, session, "print")) return;
    if (const std::string problem = print_file(ps); !problem.empty()) {
      session.error("Print GRF file", {problem});
      return;
    }
    session.carried_out(command, "GRAPHIC FILE PRINTED");
  }

  void edit_command(std::string_view command, Session& session) {
    const fs::path& path = session.files().graph_path();
    if (const std::string problem = edit_file(path); !problem.empty()) {
      session.error(kTitle, {problem});
      return;
    }
    std::string text;
    if (read_file(path, text) && (series_.empty() || text != series_.current())) {
      series_.replace_current(std::move(text));
      publish(session);
    }
    session.carried_out(command, "GRAPHIC FILE EDITED");
  }

  // GRF_OPTION "label" ON|OFF.
  void option_command(std::string_view command, Session& session) {
    const std::string label(core::rtrim(command_argument(command, "GRF_OPTION")));
    const std::size_t close = command.rfind('"');
    const std::string state = close == std::string_view::npos
                                  ? ""
                                  : core::to_upper(core::trim(command.substr(close + 1)));
    if (label.empty() || command.find('"') == close || (state != "ON" && state != "OFF")) {
      session.error(kTitle, {"GRF_OPTION needs an option's label in double quotes and ON or OFF.",
                             std::string(command)});
      return;
    }
    series_.set_option(label, state == "ON");
    if (!series_.empty()) {
      const graphics::PlotParseResult p = graphics::parse_plot(series_.current(), series_.states());
      const bool known =
          std::any_of(p.options.begin(), p.options.end(),
                      [&](const graphics::PlotOption& o) { return o.label == label; });
      if (!known) {
        session.inform(kTitle, {"The current graph has no option \"" + label +
                                "\"; the setting is kept for the graphs that have it."});
      }
      session.ui().show_graph(session.files().graph_path().string());
    }
    const std::string recorded = "GRF_OPTION \"" + label + "\" " + state;
    session.carried_out(recorded, "GRAPH OPTION \"" + label + "\" " + state);
  }

  void step_command(std::string_view command, int direction, std::string_view log_line,
                    Session& session) {
    if (!series_.step(direction)) {
      session.error(kTitle,
                    {direction > 0 ? "There is no next graph." : "There is no previous graph."});
      return;
    }
    if (publish(session)) session.carried_out(command, log_line);
  }

  GraphSeries series_;
  std::optional<GraphSettings> settings_;
  std::uintmax_t seen_size_ = 0;
  fs::file_time_type seen_time_{};
};

}  // namespace

std::unique_ptr<CommandHandler> make_graph_view() {
  return std::make_unique<GraphView>();
}

}  // namespace tidemark::shell
