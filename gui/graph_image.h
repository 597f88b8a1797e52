#pragma once
// A graph drawn by the project's cairo renderer into a bitmap of a given size: the
// page scaled to fit, centred, on white.
#include <QImage>
#include <QSize>

#include "graphics/plot.h"
#include "render/render_options.h"

namespace tidemark::gui {

QImage graph_image(const graphics::Plot& plot, const render::RenderOptions& options, QSize size);

}  // namespace tidemark::gui
