#include "shell/graph_settings.h"

#include <fmt/format.h>

#include "core/file_replace.h"
#include "core/fortran_read.h"
#include "shell/registry.h"

namespace tidemark::shell {

namespace {

// The number under `key`, when it is within [low, high]; else the default stays.
void read_number(const Registry& file, std::string_view key, double low, double high, double& value,
                 std::vector<std::string>& problems) {
  const auto text = file.get(key);
  if (!text) return;
  double v = 0;
  if (!core::read_real(*text, v) || !(v >= low && v <= high)) {
    problems.push_back(fmt::format("grf_view.ini: {}={} is not a number from {} to {}; {} is used",
                                   key, *text, low, high, value));
    return;
  }
  value = v;
}

// The file written when there is none: every key with its default and what it means.
std::string defaults_text() {
  const GraphSettings d;
  return fmt::format(
      "; Tidemark graph view settings\n"
      "; Width and Height: page size in points (1/72 inch); Dpi: PNG resolution;\n"
      "; Font_Size: axis labels in points; Format: what -grf_view writes (PNG, SVG, PDF,\n"
      "; PS or EPS).\n"
      "Width={}\nHeight={}\nDpi={}\nFont={}\nFont_Size={}\nFormat=PNG\n",
      d.render.width, d.render.height, d.render.dpi, d.render.font, d.render.font_size);
}

}  // namespace

GraphSettings load_graph_settings(const std::filesystem::path& path,
                                  std::vector<std::string>& problems) {
  GraphSettings s;
  Registry file;
  const Registry::Load loaded = file.load(path);
  if (loaded == Registry::Load::kMissing) {
    if (!core::replace_file(path, defaults_text()).ok()) {
      problems.push_back("Could not write " + path.string());
    }
    return s;
  }
  if (loaded == Registry::Load::kUnreadable) {
    problems.push_back("Could not read " + path.string() + "; the defaults are used");
    return s;
  }
  read_number(file, "Width", 72, 14400, s.render.width, problems);
  read_number(file, "Height", 72, 14400, s.render.height, problems);
  read_number(file, "Dpi", 36, 1200, s.render.dpi, problems);
  read_number(file, "Font_Size", 4, 48, s.render.font_size, problems);
  if (const auto font = file.get("Font"); font && !font->empty()) s.render.font = *font;
  if (const auto format = file.get("Format"); format && !format->empty()) {
    if (const auto f = render::format_named(*format)) {
      s.format = *f;
    } else {
      problems.push_back("grf_view.ini: Format=" + *format +
                         " is not PNG, SVG, PDF, PS or EPS; PNG is used");
    }
  }
  if (!render::options_valid(s.render)) {
    problems.push_back(
        "grf_view.ini: the page has too many pixels at this Dpi; the defaults are used");
    s.render = {};
  }
  return s;
}

}  // namespace tidemark::shell
