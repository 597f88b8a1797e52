#pragma once
// Draws a graph with cairo: onto a context the caller owns (the desktop graph view), or
// into the bytes of a PNG, SVG, PDF, PostScript or EPS file. Every format comes from
// the same drawing code, on a page options.width points wide and options.height tall,
// or taller when the graph has many panels (page_height).
//
//   const render::RenderResult r = render::render(parsed.plot, render::Format::kPng, options);
//   if (r.ok()) core::replace_file("graph.png", r.bytes);
#include <cairo.h>

#include <string>

#include "graphics/plot.h"
#include "render/render_options.h"

namespace tidemark::render {

// Draws `plot` on `cr`, whose user space is the page in points (0,0 at the top left).
// The background is left as it is. The page is options.height tall; a view that shows
// the whole graph asks page_height() first.
void draw_plot(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& options);

// The height of the page of `plot`: options.height, or more for a page of many panels
// so that each plot area keeps a legible height (see grown_page_height in layout.h).
double page_height(const graphics::Plot& plot, const RenderOptions& options);

// How a rendering ended: drawn, or refused for options outside their limits, or
// failed in cairo.
enum class RenderStatus { kRendered, kBadOptions, kCairoError };

struct RenderResult {
  RenderStatus status = RenderStatus::kCairoError;
  std::string message{};  // why nothing was rendered; empty on success
  std::string bytes{};    // the file's contents

  bool ok() const { return status == RenderStatus::kRendered; }
};

// The file of `plot` in `format` on a white page of page_height() points. Fails, with a message,
// when the options are outside their limits or cairo reports an error.
RenderResult render(const graphics::Plot& plot, Format format, const RenderOptions& options);

}  // namespace tidemark::render
