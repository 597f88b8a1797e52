#pragma once
// The graph view's settings file, system/grf_view.ini: "Key=Value" lines, letter case of
// keys ignored.
//
//   Width=720          page width in points (1/72 inch), 72 to 14400
//   Height=540         page height in points, 72 to 14400
//   Dpi=144            resolution of PNG files, 36 to 1200
//   Font=DejaVu Sans   type face
//   Font_Size=11       axis label size in points, 4 to 48
//   Format=PNG         what -grf_view writes beside the source: PNG, SVG, PDF, PS or EPS
//
// A missing file is written with these defaults; a missing key takes its default; a
// value that cannot be used is reported and its default taken.
#include <filesystem>
#include <string>
#include <vector>

#include "render/render_options.h"

namespace tidemark::shell {

struct GraphSettings {
  render::RenderOptions render{};
  render::Format format = render::Format::kPng;
};

// Reads `path` (writing the defaults there when it does not exist). Each problem
// found, in words, is added to `problems`.
GraphSettings load_graph_settings(const std::filesystem::path& path,
                                  std::vector<std::string>& problems);

}  // namespace tidemark::shell
