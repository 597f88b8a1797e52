#include "graph_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "graph_image.h"
#include "graphics/plot_parser.h"

namespace tidemark::gui {

GraphCanvas::GraphCanvas(QWidget* parent) : QWidget(parent) {
  setMinimumSize(240, 180);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void GraphCanvas::set_plot(std::optional<graphics::Plot> plot) {
  plot_ = std::move(plot);
  cached_ = {};
  update();
}

QImage GraphCanvas::image(QSize size) const {
  if (!plot_) return {};
  return graph_image(*plot_, options_, size);
}

void GraphCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QSize pixels = size() * devicePixelRatioF();
  if (!plot_) {
    painter.fillRect(rect(), palette().window());
    painter.drawText(rect(), Qt::AlignCenter, tr("No graph yet"));
    return;
  }
  if (cached_.size() != pixels) {
    cached_ = image(pixels);
    cached_.setDevicePixelRatio(devicePixelRatioF());
  }
  painter.drawImage(QPoint(0, 0), cached_);
}

GraphView::GraphView(Issue issue, QWidget* parent) : QWidget(parent), issue_(std::move(issue)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const char* text, const char* command) {
    auto* b = new QPushButton(text);
    b->setObjectName(text);
    connect(b, &QPushButton::clicked, this, [this, command] { issue_(command); });
    buttons->addWidget(b);
  };
  add("Previous", "PREVIOUS_GRAPH");
  add("Next", "NEXT_GRAPH");
  add("Load...", "LOAD_GRF");
  add("PNG...", "SAVE_GRF_PNG");
  add("SVG...", "SAVE_GRF_SVG");
  add("PDF...", "SAVE_GRF_PDF");
  add("PostScript...", "SAVE_GRF_PS");
  auto* print_button = new QPushButton(tr("Print..."));
  print_button->setObjectName("Print...");
  connect(print_button, &QPushButton::clicked, this, &GraphView::print);
  buttons->addWidget(print_button);
  buttons->addStretch(1);
  layout->addLayout(buttons);

  auto* row = new QHBoxLayout;
  canvas_ = new GraphCanvas;
  row->addWidget(canvas_, 1);
  auto* group = new QGroupBox(tr("Options"));
  options_layout_ = new QVBoxLayout(group);
  options_layout_->addStretch(1);
  options_box_ = group;
  group->setVisible(false);
  row->addWidget(group);
  layout->addLayout(row, 1);
}

bool GraphView::load(const std::string& path, std::string& problem) {
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) {
    problem = path + ": the file cannot be read";
    return false;
  }
  std::string source = file.readAll().toStdString();
  std::swap(source, source_);
  if (show_source(problem)) return true;
  problem = path + ": " + problem;
  source_ = std::move(source);
  return false;
}

bool GraphView::show_source(std::string& problem) {
  graphics::PlotParseResult parsed = graphics::parse_plot(source_, states_);
  if (!parsed.ok()) {
    problem = parsed.message;
    return false;
  }
  show_options(parsed.options);
  canvas_->set_plot(std::move(parsed.plot));
  return true;
}

void GraphView::set_states(const graphics::OptionStates& states) {
  if (states == states_) return;
  states_ = states;
  std::string problem;
  if (!source_.empty()) show_source(problem);  // a source that read before reads again
}

void GraphView::show_options(const std::vector<graphics::PlotOption>& options) {
  while (options_layout_->count() > 1) {  // the stretch at the end stays
    QLayoutItem* item = options_layout_->takeAt(0);
    delete item->widget();
    delete item;
  }
  for (const graphics::PlotOption& option : options) {
    auto* box = new QCheckBox(QString::fromStdString(option.label));
    box->setObjectName(QString::fromStdString(option.label));
    const auto state = states_.find(option.label);
    box->setChecked(state == states_.end() ? option.default_checked : state->second);
    connect(box, &QCheckBox::toggled, this, [this, label = option.label](bool on) {
      states_[label] = on;
      issue_("GRF_OPTION \"" + label + "\" " + (on ? "ON" : "OFF"));
    });
    options_layout_->insertWidget(options_layout_->count() - 1, box);
  }
  options_box_->setVisible(!options.empty());
}

void GraphView::print() {
  if (!canvas_->plot()) return;
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(tr("Print Graph"));
  if (dialog.exec() != QDialog::Accepted) return;
  QPainter painter(&printer);
  const QRect page = painter.viewport();
  const QImage image = canvas_->image(page.size() / 4);
  painter.drawImage(page, image);
}

void GraphView::copy_to_clipboard() {
  if (canvas_->plot()) QApplication::clipboard()->setImage(canvas_->image(QSize(1440, 1080)));
}

}  // namespace tidemark::gui
