#include "render/text.h"

#include <cairo-ft.h>

#include <string>

// Under AddressSanitizer: fontconfig, which cairo uses to find fonts, keeps its
// configuration and pattern caches for the life of the process by design, and so do the
// window-system libraries under the desktop program's Qt (which draws through this
// renderer); the leak check at exit is told so, so that it reports only our own leaks.
// One list for the whole process: the sanitizer takes one such function.
#if defined(__SANITIZE_ADDRESS__)
#define TIDEMARK_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TIDEMARK_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef TIDEMARK_ADDRESS_SANITIZER
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\nleak:libQt6\nleak:libglib\nleak:libgobject\nleak:libdbus\n";
}
#endif

namespace tidemark::render {

std::string drawable_text(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const auto c = static_cast<unsigned char>(text[i]);
    const std::size_t n = c < 0x80           ? 1
                          : (c >> 5) == 0x6  ? 2
                          : (c >> 4) == 0xE  ? 3
                          : (c >> 3) == 0x1E ? 4
                                             : 0;
    bool good = n > 0 && i + n <= text.size() && c != 0xC0 && c != 0xC1 && c <= 0xF4;
    for (std::size_t k = 1; good && k < n; ++k) {
      good = (static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80;
    }
    if (good && n == 3) {  // no overlong forms, no surrogates
      const auto c1 = static_cast<unsigned char>(text[i + 1]);
      good = !(c == 0xE0 && c1 < 0xA0) && !(c == 0xED && c1 >= 0xA0);
    }
    if (good && n == 4) {  // no overlong forms, nothing above U+10FFFF
      const auto c1 = static_cast<unsigned char>(text[i + 1]);
      good = !(c == 0xF0 && c1 < 0x90) && !(c == 0xF4 && c1 >= 0x90);
    }
    if (good && c != 0) {
      out.append(text.substr(i, n));
      i += n;
      continue;
    }
    if (c >= 0xA0) {  // Latin-1: the character of the same number
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += '?';
    }
    ++i;
  }
  return out;
}

double font_points(const RenderOptions& options, Role role) {
  switch (role) {
    case Role::kTick:
    case Role::kNote:
      return 0.9 * options.font_size;
    case Role::kLabel:
      return options.font_size;
    case Role::kPanelTitle:
      return 1.1 * options.font_size;
    case Role::kPageTitle:
      return 1.35 * options.font_size;
  }
  return options.font_size;
}

namespace {

// The two faces of one drawing. cairo's own faces (cairo_select_font_face) are shared by
// the whole process, and each is matched to a font file once, with the hinting of the
// surface it first drew on: after an SVG page (the desktop's graph view measures its
// page so) a PNG of the same process came out unhinted, byte for byte unlike the same
// PNG drawn first. Faces of our own, kept on the context and matched at their first
// use, give every drawing the text of its own surface, whatever was drawn before.
struct Faces {
  std::string family;
  cairo_font_face_t* regular = nullptr;
  cairo_font_face_t* bold = nullptr;
  ~Faces() {
    cairo_font_face_destroy(regular);
    cairo_font_face_destroy(bold);
  }
};

const cairo_user_data_key_t kFacesKey{};

// The family's face as cairo's own face of that family and weight is described.
cairo_font_face_t* make_face(const std::string& family, bool bold) {
  FcPattern* pattern = FcPatternCreate();
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcPatternAddInteger(pattern, FC_SLANT, FC_SLANT_ROMAN);
  FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_MEDIUM);
  cairo_font_face_t* face = cairo_ft_font_face_create_for_pattern(pattern);
  FcPatternDestroy(pattern);
  return face;
}

cairo_font_face_t* drawing_face(cairo_t* cr, const std::string& family, bool bold) {
  auto* faces = static_cast<Faces*>(cairo_get_user_data(cr, &kFacesKey));
  if (faces == nullptr || faces->family != family) {
    faces = new Faces{family, make_face(family, false), make_face(family, true)};
    cairo_set_user_data(cr, &kFacesKey, faces, [](void* f) { delete static_cast<Faces*>(f); });
  }
  return bold ? faces->bold : faces->regular;
}

}  // namespace

void use_font(cairo_t* cr, const RenderOptions& options, Role role) {
  const bool bold = role == Role::kPanelTitle || role == Role::kPageTitle;
  cairo_set_font_face(cr, drawing_face(cr, options.font, bold));
  cairo_set_font_size(cr, font_points(options, role));
}

double text_width(cairo_t* cr, std::string_view text) {
  const std::string s = drawable_text(text);
  cairo_text_extents_t e;
  cairo_text_extents(cr, s.c_str(), &e);
  return e.x_advance;
}

std::string shortened_to(cairo_t* cr, std::string_view text, double width) {
  if (text_width(cr, text) <= width) return std::string(text);
  static constexpr std::string_view kEllipsis = "…";
  std::string_view kept = text;
  while (!kept.empty()) {
    // Drop one character: its continuation bytes, then its lead byte.
    while (!kept.empty() && (static_cast<unsigned char>(kept.back()) & 0xC0) == 0x80) {
      kept.remove_suffix(1);
    }
    if (!kept.empty()) kept.remove_suffix(1);
    while (!kept.empty() && kept.back() == ' ') kept.remove_suffix(1);
    const std::string candidate = std::string(kept) + std::string(kEllipsis);
    if (text_width(cr, candidate) <= width) return candidate;
  }
  return text_width(cr, kEllipsis) <= width ? std::string(kEllipsis) : std::string();
}

double line_height(cairo_t* cr) {
  cairo_font_extents_t e;
  cairo_font_extents(cr, &e);
  return e.ascent + e.descent;
}

void draw_text(cairo_t* cr, double x, double y, std::string_view text, graphics::Align align,
               bool centred) {
  if (text.empty()) return;
  const double w = text_width(cr, text);
  if (align == graphics::Align::kCenter) x -= w / 2;
  if (align == graphics::Align::kRight) x -= w;
  if (centred) {
    cairo_font_extents_t e;
    cairo_font_extents(cr, &e);
    y += 0.5 * (e.ascent - e.descent);
  }
  const std::string s = drawable_text(text);
  cairo_move_to(cr, x, y);
  cairo_show_text(cr, s.c_str());
  cairo_new_path(cr);
}

}  // namespace tidemark::render
