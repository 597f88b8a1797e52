#include "shell/modes.h"

#include <cassert>

#include "core/text.h"

namespace tidemark::shell {

const std::array<ModeInfo, kModeCount>& mode_table() {
  static constexpr std::array<ModeInfo, kModeCount> kModes{{
      {"ApEn", 0, false, "APEN"},
      {"AutoDecon", 0, false, "DECON"},
      {"Cluster8", 0, false, "CLUSTER"},
      {"Concordance", 0, true, "CONCORD"},
      {"Correlation", 0, true, "CORR"},
      {"Cosine", 0, false, "COSINE"},
      {"Deconv", 1, false, "DECON"},
      {"Gold_Method", 0, false, "GOLD"},
      {"Periodic", 0, false, "PERIODIC"},
      {"Pulse", 0, false, "PULSE"},
      {"Pulse2", 0, false, "PULSE2"},
      {"Pulse4", 0, false, "PULSE4"},
      {"SRQuant", 0, false, "DOSE_RESPONSE", "RESPONSE"},
      {"X_ApEn", 0, true, "XAPEN"},
  }};
  return kModes;
}

const ModeInfo& mode_info(int index) {
  assert(index >= 1 && index <= kModeCount);
  return mode_table()[static_cast<std::size_t>(index - 1)];
}

std::string padded_mode_name(int index) {
  std::string name(mode_info(index).name);
  name.resize(kModeNameWidth, ' ');
  return name;
}

std::optional<int> find_mode(std::string_view name) {
  const std::string wanted = core::to_upper(core::trim(name));
  for (int i = 1; i <= kModeCount; ++i) {
    if (core::to_upper(mode_info(i).name) == wanted) return i;
  }
  return std::nullopt;
}

}  // namespace tidemark::shell
