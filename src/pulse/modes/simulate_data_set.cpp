#include "pulse/modes/simulate_data_set.h"

#include <array>
#include <utility>
#include <vector>

#include "core/missing.h"
#include "data/secretion_events.h"

namespace tidemark::pulse {

data::DataSet simulated_data_set(const SimulatedSeries& series, int replicates,
                                 const std::string& file_name, const std::string& handle) {
  data::DataSet set;
  set.file_name = file_name;
  set.handle = handle;
  set.headers[data::kX] = "TIME";
  set.headers[data::kY] = "CONC";
  set.headers[data::kDY] = "SEM";
  set.headers[data::kReps] = "REPS";
  const float reps = static_cast<float>(replicates);
  for (std::size_t i = 0; i < series.time.size(); ++i) {
    set.push_point({series.time[i], series.concentration[i], series.sem[i], reps, 0, 0, 0, 0});
  }
  std::array<double, data::kModelParameterCount> model;
  model.fill(core::kMissing);
  const int fixed = series.layout.first_event_index();
  for (int k = 0; k < fixed; ++k) model[static_cast<std::size_t>(k)] = series.parameters[k];
  data::set_model_parameters(set, model);
  std::vector<data::SecretionEvent> events;
  for (int e = 0; e < series.layout.events; ++e) {
    events.push_back({series.parameters[series.layout.position_index(e)],
                      series.parameters[series.layout.log_height_index(e)]});
  }
  data::set_secretion_events(set, events);
  set.truth = {{model.begin(), model.end()}, std::move(events)};
  set.modified = true;  // made in this run: no file holds it yet
  return set;
}

}  // namespace tidemark::pulse
