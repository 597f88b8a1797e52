#pragma once
// The graph view: the current graph drawn by the cairo renderer, redrawn at the window's
// size; its "#IFCHECKED" options as check boxes beside it; buttons for the previous and
// next graph, loading a source, the exports and printing. Every button but Print issues
// a command (GRF_OPTION, NEXT_GRAPH, LOAD_GRF, SAVE_GRF_PNG, ...); Print opens the print
// dialog, an action of the window alone.
#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "graphics/plot.h"
#include "graphics/plot_options.h"
#include "render/render_options.h"

class QVBoxLayout;
class QLabel;

namespace tidemark::gui {

// The drawing area: the graph at the widget's size, drawn again only when the size or
// the graph changes.
class GraphCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit GraphCanvas(QWidget* parent = nullptr);
  void set_plot(std::optional<graphics::Plot> plot);
  const std::optional<graphics::Plot>& plot() const { return plot_; }
  // The graph at `size` (what the view paints, and what Print and the clipboard take).
  QImage image(QSize size) const;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  std::optional<graphics::Plot> plot_;
  render::RenderOptions options_;
  QImage cached_;
};

class GraphView : public QWidget {
  Q_OBJECT

 public:
  using Issue = std::function<void(const std::string&)>;
  GraphView(Issue issue, QWidget* parent = nullptr);

  // Reads and shows the graph source `path`; false, with `problem`, when it does not read
  // (the graph shown stays).
  bool load(const std::string& path, std::string& problem);
  // The states of the options, as set here or by the shell's GRF_OPTION.
  const graphics::OptionStates& states() const { return states_; }
  // Takes the states the shell holds: the graph is read again and its check boxes show
  // them, without issuing a command.
  void set_states(const graphics::OptionStates& states);

  GraphCanvas* canvas() const { return canvas_; }
  void print();
  void copy_to_clipboard();

 private:
  void show_options(const std::vector<graphics::PlotOption>& options);
  // Reads source_ with states_ and shows it; false, with `problem`, when it does not read.
  bool show_source(std::string& problem);

  Issue issue_;
  std::string source_;
  graphics::OptionStates states_;
  GraphCanvas* canvas_ = nullptr;
  QWidget* options_box_ = nullptr;
  QVBoxLayout* options_layout_ = nullptr;
};

}  // namespace tidemark::gui
