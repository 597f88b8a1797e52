#pragma once
// How a graph is rendered: the page size, the resolution of bitmaps and the type face.
// The graph view reads these from grf_view.ini; the defaults suit a slide or a page.
#include <optional>
#include <string>
#include <string_view>

namespace tidemark::render {

struct RenderOptions {
  double width = 720;   // page width in points (1/72 inch)
  double height = 540;  // page height in points
  double dpi = 144;     // PNG pixels per inch: a bitmap is width * dpi / 72 pixels wide
  std::string font = "DejaVu Sans";
  double font_size = 11;  // axis labels; tick labels 0.9, titles 1.1 and 1.35 times this
};

// Limits within which options are used (outside them a reader falls back to the
// default): page sides 72 to 14400 points, 36 to 1200 dpi with at most 100 million
// pixels, fonts of 4 to 48 points.
bool options_valid(const RenderOptions& options);

// The greatest page height within those limits for the options' width and resolution.
double tallest_page(const RenderOptions& options);

enum class Format { kPng, kSvg, kPdf, kPs, kEps };

// The format a file name's extension names (".png", ".svg", ".pdf", ".ps", ".eps"),
// or a format's name ("PNG", "SVG", ...); letter case ignored.
std::optional<Format> format_named(std::string_view name_or_file);

}  // namespace tidemark::render
