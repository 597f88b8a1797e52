#pragma once
// The vocabulary of the plot description language: axis scales, legend places, point
// symbols, line dashes, colours and text alignment, with the keywords that name them.
// The writer, the parser and the renderer share these tables, so a keyword is spelled
// in one place only.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidemark::graphics {

enum class Scale { kLinear, kLog };
// A legend's corner of the plot area, or a row of entries below the panel's x label.
enum class Place { kNone, kTopLeft, kTopRight, kBottomLeft, kBottomRight, kBelow };
enum class Symbol {
  kNone,
  kAuto,
  kCircle,
  kSquare,
  kTriangle,
  kDiamond,
  kDownTriangle,
  kCross,
  kPlus
};
enum class Dash { kNone, kAuto, kSolid, kDash, kDot, kDashDot };
enum class Align { kLeft, kCenter, kRight };

// A colour as 0xRRGGBB, or the series cycle's colour (`automatic`).
struct Colour {
  std::uint32_t rgb = 0;
  bool automatic = true;

  static Colour rgb_of(std::uint32_t value) { return {value, false}; }
  bool operator==(const Colour&) const = default;
};

// Named colours, chosen to differ in lightness as well as hue (they stay apart in grey).
inline constexpr Colour kBlack = {0x000000, false};
inline constexpr Colour kVermilion = {0xD55E00, false};
inline constexpr Colour kBlue = {0x0072B2, false};
inline constexpr Colour kGreen = {0x009E73, false};
inline constexpr Colour kOrange = {0xE69F00, false};
inline constexpr Colour kPurple = {0xCC79A7, false};
inline constexpr Colour kSky = {0x56B4E9, false};
inline constexpr Colour kGrey = {0x7F7F7F, false};

// The keyword of each value ("LOG", "TOPRIGHT", "CIRCLE", "DASHDOT", "CENTER"); a colour
// is its name when it has one, else "#RRGGBB", and "AUTO" when automatic.
std::string_view keyword(Scale v);
std::string_view keyword(Place v);
std::string_view keyword(Symbol v);
std::string_view keyword(Dash v);
std::string_view keyword(Align v);
std::string keyword(Colour v);

// The value a keyword names, letter case ignored; no value for an unknown word.
std::optional<Place> place_named(std::string_view word);
std::optional<Symbol> symbol_named(std::string_view word);
std::optional<Dash> dash_named(std::string_view word);
std::optional<Align> align_named(std::string_view word);
std::optional<Colour> colour_named(std::string_view word);

// The n-th entry (0-based, cycling) of a panel's series cycle: colours black,
// vermilion, blue, orange, green, purple, sky; symbols circle, square, triangle,
// diamond, down-triangle, cross, plus; dashes solid, dash, dot, dash-dot.
Colour cycle_colour(int n);
Symbol cycle_symbol(int n);
Dash cycle_dash(int n);

}  // namespace tidemark::graphics
