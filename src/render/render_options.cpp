#include "render/render_options.h"

#include <filesystem>

#include "core/text.h"

namespace tidemark::render {

bool options_valid(const RenderOptions& o) {
  const auto within = [](double v, double low, double high) { return v >= low && v <= high; };
  const double pixels = (o.width * o.dpi / 72) * (o.height * o.dpi / 72);
  return within(o.width, 72, 14400) && within(o.height, 72, 14400) && within(o.dpi, 36, 1200) &&
         pixels <= 1e8 && within(o.font_size, 4, 48) && !o.font.empty();
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
