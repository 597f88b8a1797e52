#include "graphics/plot_style.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include "core/text.h"

namespace tidemark::graphics {

namespace {

template <typename T>
using Entry = std::pair<T, std::string_view>;

constexpr Entry<Scale> kScales[] = {{Scale::kLinear, "LINEAR"}, {Scale::kLog, "LOG"}};
constexpr Entry<Place> kPlaces[] = {{Place::kNone, "NONE"},
                                    {Place::kTopLeft, "TOPLEFT"},
                                    {Place::kTopRight, "TOPRIGHT"},
                                    {Place::kBottomLeft, "BOTTOMLEFT"},
                                    {Place::kBottomRight, "BOTTOMRIGHT"},
                                    {Place::kBelow, "BELOW"}};
constexpr Entry<Symbol> kSymbols[] = {{Symbol::kNone, "NONE"},
                                      {Symbol::kAuto, "AUTO"},
                                      {Symbol::kCircle, "CIRCLE"},
                                      {Symbol::kSquare, "SQUARE"},
                                      {Symbol::kTriangle, "TRIANGLE"},
                                      {Symbol::kDiamond, "DIAMOND"},
                                      {Symbol::kDownTriangle, "DOWNTRIANGLE"},
                                      {Symbol::kCross, "CROSS"},
                                      {Symbol::kPlus, "PLUS"}};
constexpr Entry<Dash> kDashes[] = {{Dash::kNone, "NONE"},   {Dash::kAuto, "AUTO"},
                                   {Dash::kSolid, "SOLID"}, {Dash::kDash, "DASH"},
                                   {Dash::kDot, "DOT"},     {Dash::kDashDot, "DASHDOT"}};
constexpr Entry<Align> kAligns[] = {
    {Align::kLeft, "LEFT"}, {Align::kCenter, "CENTER"}, {Align::kRight, "RIGHT"}};
constexpr Entry<Colour> kColours[] = {
    {kBlack, "BLACK"}, {kVermilion, "VERMILION"}, {kBlue, "BLUE"},
    {kGreen, "GREEN"}, {kOrange, "ORANGE"},       {kPurple, "PURPLE"},
    {kSky, "SKY"},     {kGrey, "GREY"},           {Colour{}, "AUTO"}};

template <typename T, std::size_t N>
std::string_view name_in(const Entry<T> (&table)[N], T value) {
  for (const auto& [v, name] : table) {
    if (v == value) return name;
  }
  return {};
}

template <typename T, std::size_t N>
std::optional<T> value_in(const Entry<T> (&table)[N], std::string_view word) {
  const std::string upper = core::to_upper(word);
  for (const auto& [v, name] : table) {
    if (name == upper) return v;
  }
  return std::nullopt;
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

constexpr std::array kCycleColours = {kBlack, kVermilion, kBlue, kOrange, kGreen, kPurple, kSky};
constexpr std::array kCycleSymbols = {Symbol::kCircle,  Symbol::kSquare,       Symbol::kTriangle,
                                      Symbol::kDiamond, Symbol::kDownTriangle, Symbol::kCross,
                                      Symbol::kPlus};
constexpr std::array kCycleDashes = {Dash::kSolid, Dash::kDash, Dash::kDot, Dash::kDashDot};

template <typename A>
auto cycled(const A& entries, int n) {
  const int size = static_cast<int>(entries.size());
  return entries[static_cast<std::size_t>(((n % size) + size) % size)];
}

}  // namespace

std::string_view keyword(Scale v) {
  return name_in(kScales, v);
}
std::string_view keyword(Place v) {
  return name_in(kPlaces, v);
}
std::string_view keyword(Symbol v) {
  return name_in(kSymbols, v);
}
std::string_view keyword(Dash v) {
  return name_in(kDashes, v);
}
std::string_view keyword(Align v) {
  return name_in(kAligns, v);
}

std::string keyword(Colour v) {
  if (v.automatic) return "AUTO";
  const std::string_view name = name_in(kColours, v);
  if (!name.empty()) return std::string(name);
  return fmt::format("#{:06X}", v.rgb & 0xFFFFFFu);
}

std::optional<Place> place_named(std::string_view word) {
  return value_in(kPlaces, word);
}
std::optional<Symbol> symbol_named(std::string_view word) {
  return value_in(kSymbols, word);
}
std::optional<Dash> dash_named(std::string_view word) {
  return value_in(kDashes, word);
}
std::optional<Align> align_named(std::string_view word) {
  return value_in(kAligns, word);
}

std::optional<Colour> colour_named(std::string_view word) {
  if (word.size() == 7 && word[0] == '#') {
    std::uint32_t rgb = 0;
    for (char c : word.substr(1)) {
      const int d = hex_digit(c);
      if (d < 0) return std::nullopt;
      rgb = rgb * 16u + static_cast<std::uint32_t>(d);
    }
    return Colour::rgb_of(rgb);
  }
  return value_in(kColours, word);
}

Colour cycle_colour(int n) {
  return cycled(kCycleColours, n);
}
Symbol cycle_symbol(int n) {
  return cycled(kCycleSymbols, n);
}
Dash cycle_dash(int n) {
  return cycled(kCycleDashes, n);
}

}  // namespace tidemark::graphics
