#pragma once
// The parameter vector of the secretion-elimination model: its layout for one to three
// elimination half-lives and any number of secretion events, and the names under which
// the fitter lists and asks for its entries.
#include <array>
#include <string_view>

namespace tidemark::pulse {

// Indices (0-based) of the fixed entries. With one half-life the vector holds entries
// kBasal..kHalfLife1, with two up to kHalfLife2, with three up to kHalfLife3.
inline constexpr int kBasal = 0;        // S0, basal secretion rate (concentration per time)
inline constexpr int kConc0 = 1;        // C0, concentration present at time zero
inline constexpr int kSecretionSd = 2;  // sigma, SD of every event's Gaussian (time)
inline constexpr int kHalfLife1 = 3;    // HL1
inline constexpr int kFraction2 = 4;    // f2, weight of the second elimination component
inline constexpr int kHalfLife2 = 5;    // HL2
inline constexpr int kFraction3 = 6;    // f3
inline constexpr int kHalfLife3 = 7;    // HL3

inline constexpr std::array<std::string_view, 8> kFixedParameterNames = {
    "BASAL SEC.",  "CONC(T=0)",    "SEC. SD.",    "HALF-LIFE(1)",
    "FRACTION(2)", "HALF-LIFE(2)", "FRACTION(3)", "HALF-LIFE(3)"};
inline constexpr std::string_view kPositionName = "POSITION";
inline constexpr std::string_view kLogHeightName = "LogHeight";

// How the event width is shown to the user besides its SD.
inline constexpr std::string_view kHalfDurationLabel = "Half-Duration i.e. 2.354*SD";

// Most events the model takes: the data set's answers slots hold 96 (POSITION, LogHeight)
// pairs after the eight model parameters.
inline constexpr int kMaxEvents = 96;

// The shape of one parameter vector: 1 to 3 half-lives and 0 to kMaxEvents events.
struct ModelLayout {
  int half_lives = 1;
  int events = 0;

  bool valid() const {
    return half_lives >= 1 && half_lives <= 3 && events >= 0 && events <= kMaxEvents;
  }
  // Index of the first event entry: 2 + 2 * half_lives (4, 6 or 8).
  int first_event_index() const { return 2 + 2 * half_lives; }
  // Length of the vector: first_event_index() + 2 * events.
  int size() const { return first_event_index() + 2 * events; }
  // Index of event e's POSITION (e 0-based); its LogHeight follows it.
  int position_index(int e) const { return first_event_index() + 2 * e; }
  int log_height_index(int e) const { return position_index(e) + 1; }
};

// The name of entry `index` (0-based, below layout.size()) of a vector of this layout:
//   parameter_name({2, 1}, 5) == "HALF-LIFE(2)",  parameter_name({2, 1}, 6) == "POSITION"
std::string_view parameter_name(const ModelLayout& layout, int index);

// Full width at half maximum of an event of secretion SD `sd`: 2.354 * sd.
inline double half_duration(double sd) {
  return 2.354 * sd;
}

}  // namespace tidemark::pulse
