#include "graph_image.h"

#include <cairo.h>

#include <algorithm>
#include <string>

#include "render/cairo_library.h"
#include "render/renderer.h"

namespace tidemark::gui {

QImage graph_image(const graphics::Plot& plot, const render::RenderOptions& options, QSize size) {
  QImage image(size.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  std::string problem;
  if (!render::cairo_ready(problem)) return image;  // blank: the graph cannot be drawn
  render::RenderOptions page = options;
  page.height = render::page_height(plot, options);
  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      image.bits(), CAIRO_FORMAT_ARGB32, image.width(), image.height(),
      static_cast<int>(image.bytesPerLine()));
  cairo_t* cr = cairo_create(surface);
  const double scale = std::min(image.width() / page.width, image.height() / page.height);
  cairo_translate(cr, (image.width() - page.width * scale) / 2,
                  (image.height() - page.height * scale) / 2);
  cairo_scale(cr, scale, scale);
  render::draw_plot(cr, plot, page);
  cairo_destroy(cr);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  return image;
}

}  // namespace tidemark::gui
