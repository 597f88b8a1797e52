#pragma once
// The 14 analysis modes in menu order; the index of a mode is its place in this table
// counted from 1, and 0 means no mode chosen. The names are shown in the list titled
// "Algorithm" ("Select the data analysis algorithm") and in the Mode menu.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tidemark::shell {

inline constexpr int kModeCount = 14;
// Mode names are held 15 characters wide, blank-padded.
inline constexpr std::size_t kModeNameWidth = 15;
inline constexpr std::string_view kModeListTitle = "Algorithm";
inline constexpr std::string_view kModeListPrompt = "Select the data analysis algorithm";

struct ModeInfo {
  std::string_view name;
  // The deconvolution driver serves two modes: AutoDecon enters it with variant 0,
  // Deconv with variant 1. Every other mode has variant 0.
  int variant = 0;
  // The driver needs two data sets (Concordance, Correlation, X_ApEn).
  bool needs_two_sets = false;
  // The prefix of the mode's button commands, without the "_" (CLUSTER_CALCULATE).
  std::string_view prefix;
  // A second prefix the same commands answer to (RESPONSE_CALCULATE for
  // DOSE_RESPONSE_CALCULATE); empty for none.
  std::string_view alias{};
};

const std::array<ModeInfo, kModeCount>& mode_table();

// The mode at `index` (1..14).
const ModeInfo& mode_info(int index);

// The mode's name blank-padded to 15 characters, as the table holds it.
std::string padded_mode_name(int index);

// The index (1..14) of the mode named `name`, letter case and surrounding blanks
// ignored; no value when no mode has that name.
std::optional<int> find_mode(std::string_view name);

}  // namespace tidemark::shell
