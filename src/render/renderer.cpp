#include "render/renderer.h"

#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cairo-svg.h>
#include <fmt/format.h>

#include <cmath>
#include <memory>

#include "render/cairo_library.h"
#include "render/draw_parts.h"
#include "render/layout.h"
#include "render/legend_place.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

struct SurfaceDeleter {
  void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct ContextDeleter {
  void operator()(cairo_t* c) const { cairo_destroy(c); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

cairo_status_t append_bytes(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

// A surface that streams `format` into `out`; a PNG is drawn on an image surface that
// is encoded once the drawing is done.
Surface make_surface(Format format, const RenderOptions& o, std::string* out) {
  switch (format) {
    case Format::kPng:
      return Surface(cairo_image_surface_create(
          CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(o.width * o.dpi / 72)),
          static_cast<int>(std::lround(o.height * o.dpi / 72))));
    case Format::kSvg:
      return Surface(cairo_svg_surface_create_for_stream(append_bytes, out, o.width, o.height));
    case Format::kPdf:
      return Surface(cairo_pdf_surface_create_for_stream(append_bytes, out, o.width, o.height));
    case Format::kPs:
    case Format::kEps: {
      Surface s(cairo_ps_surface_create_for_stream(append_bytes, out, o.width, o.height));
      cairo_ps_surface_set_eps(s.get(), format == Format::kEps);
      return s;
    }
  }
  return nullptr;
}

cairo_status_t discard_bytes(void*, const unsigned char*, unsigned int) {
  return CAIRO_STATUS_SUCCESS;
}

// The page `plot` needs, measured on a surface that sets text like the one of `format`:
// bitmaps hinted at their resolution, the vector formats unhinted as an SVG file is.
RenderOptions grown_page(const graphics::Plot& plot, Format format, const RenderOptions& o) {
  Surface scratch(format == Format::kPng
                      ? cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1)
                      : cairo_svg_surface_create_for_stream(discard_bytes, nullptr, 1, 1));
  Context cr(cairo_create(scratch.get()));
  if (format == Format::kPng) cairo_scale(cr.get(), o.dpi / 72, o.dpi / 72);
  RenderOptions grown = o;
  grown.height = grown_page_height(cr.get(), plot, o);
  return grown;
}

void draw_page_texts(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& o) {
  use_font(cr, o, Role::kNote);
  cairo_set_source_rgb(cr, 0.27, 0.27, 0.27);
  for (const graphics::Label& l : plot.page_texts) {
    draw_text(cr, l.x * o.width, (1 - l.y) * o.height, l.text, l.align);
  }
}

void draw_notes(cairo_t* cr, const graphics::Plot& plot, const PageLayout& page,
                const RenderOptions& o) {
  use_font(cr, o, Role::kNote);
  cairo_set_source_rgb(cr, 0.27, 0.27, 0.27);
  for (std::size_t i = 0; i < plot.notes.size(); ++i) {
    draw_text(cr, page.notes_left, page.note_baselines[i], plot.notes[i], graphics::Align::kLeft);
  }
}

}  // namespace

void draw_plot(cairo_t* cr, const graphics::Plot& source, const RenderOptions& options) {
  cairo_save(cr);
  // A legend box goes where it hides no data, or below its panel.
  const graphics::Plot plot = with_legends_placed(cr, source, options);
  const PageLayout page = lay_out(cr, plot, options);
  if (!plot.title.empty()) {
    use_font(cr, options, Role::kPageTitle);
    cairo_set_source_rgb(cr, 0, 0, 0);
    draw_text(cr, options.width / 2, page.title_baseline, plot.title, graphics::Align::kCenter);
  }
  draw_notes(cr, plot, page, options);
  for (std::size_t i = 0; i < plot.panels.size(); ++i) {
    const graphics::Panel& panel = plot.panels[i];
    const Frame& f = page.frames[i];
    draw_axes(cr, f, panel, options);
    for (const graphics::Series& s : panel.series) draw_series(cr, f, s);
    draw_marks(cr, f, panel, options);
    draw_legend(cr, f, panel, options);
  }
  draw_page_texts(cr, plot, options);
  cairo_restore(cr);
}

double page_height(const graphics::Plot& plot, const RenderOptions& options) {
  return grown_page(plot, Format::kSvg, options).height;
}

RenderResult render(const graphics::Plot& plot, Format format, const RenderOptions& given) {
  RenderResult r;
  if (!cairo_ready(r.message)) return r;  // status kCairoError
  if (!options_valid(given)) {
    r.status = RenderStatus::kBadOptions;
    r.message = "graph view settings out of range (page size, resolution or font size)";
    return r;
  }
  const RenderOptions options = grown_page(plot, format, given);
  Surface surface = make_surface(format, options, &r.bytes);
  Context cr(cairo_create(surface.get()));
  if (format == Format::kPng) cairo_scale(cr.get(), options.dpi / 72, options.dpi / 72);
  cairo_set_source_rgb(cr.get(), 1, 1, 1);
  cairo_paint(cr.get());
  draw_plot(cr.get(), plot, options);
  cairo_status_t status = cairo_status(cr.get());
  cr.reset();
  if (status == CAIRO_STATUS_SUCCESS && format == Format::kPng) {
    status = cairo_surface_write_to_png_stream(surface.get(), append_bytes, &r.bytes);
  }
  cairo_surface_finish(surface.get());
  if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    r.bytes.clear();
    r.message = fmt::format("the graph could not be drawn: {}", cairo_status_to_string(status));
    return r;
  }
  r.status = RenderStatus::kRendered;
  return r;
}

}  // namespace tidemark::render
