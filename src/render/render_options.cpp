#include "render/render_options.h"

#include <algorithm>
#include <filesystem>

#include "core/text.h"

namespace tidemark::render {

namespace {

constexpr double kLargestSide = 14400;  // points
constexpr double kMostPixels = 1e8;

}  // namespace

bool options_valid(const RenderOptions& o) {
  const auto within = [](double v, double low, double high) { return v >= low && v <= high; };
  const double pixels = (o.width * o.dpi / 72) * (o.height * o.dpi / 72);
  return within(o.width, 72, kLargestSide) && within(o.height, 72, kLargestSide) &&
         within(o.dpi, 36, 1200) && pixels <= kMostPixels && within(o.font_size, 4, 48) &&
         !o.font.empty();
}

double tallest_page(const RenderOptions& o) {
  const double pixels_per_point = o.dpi / 72;
  return std::min(kLargestSide, kMostPixels / (o.width * pixels_per_point) / pixels_per_point);
}

std::optional<Format> format_named(std::string_view name_or_file) {
  std::string word = core::to_upper(name_or_file);
  const std::string extension = std::filesystem::path(word).extension().string();
  if (!extension.empty()) word = extension.substr(1);
  if (word == "PNG") return Format::kPng;
  if (word == "SVG") return Format::kSvg;
  if (word == "PDF") return Format::kPdf;
  if (word == "PS") return Format::kPs;
  if (word == "EPS") return Format::kEps;
  return std::nullopt;
}

}  // namespace tidemark::render
