#include "pulse/model_layout.h"

#include <cassert>

namespace tidemark::pulse {

std::string_view parameter_name(const ModelLayout& layout, int index) {
  assert(index >= 0 && index < layout.size());
  const int first_event = layout.first_event_index();
  if (index < first_event) return kFixedParameterNames[index];
  return (index - first_event) % 2 == 0 ? kPositionName : kLogHeightName;
}

}  // namespace tidemark::pulse
