#include "data/secretion_events.h"

#include <algorithm>

namespace tidemark::data {

namespace {
// 0-based index into DataSet::answers of event e's POSITION (answer 7 + 2e, e from 1).
constexpr int position_slot(int e) { return 7 + 2 * e - 1; }
}  // namespace

std::vector<SecretionEvent> secretion_events(const DataSet& set) {
  std::vector<SecretionEvent> events;
  for (int e = 1; e <= kMaxSecretionEvents; ++e) {
    const double position = set.answers[position_slot(e)];
    if (core::is_missing(position)) break;
    events.push_back({position, set.answers[position_slot(e) + 1]});
  }
  return events;
}

void set_secretion_events(DataSet& set, std::span<const SecretionEvent> events) {
  const int kept = std::min(static_cast<int>(events.size()), kMaxSecretionEvents);
  for (int e = 1; e <= kMaxSecretionEvents; ++e) {
    const bool present = e <= kept;
    set.answers[position_slot(e)] = present ? events[e - 1].position : core::kMissing;
    set.answers[position_slot(e) + 1] = present ? events[e - 1].log_height : core::kMissing;
  }
}

void set_model_parameters(DataSet& set, std::span<const double, kModelParameterCount> parameters) {
  std::copy(parameters.begin(), parameters.end(), set.answers.begin());
}

}  // namespace tidemark::data
