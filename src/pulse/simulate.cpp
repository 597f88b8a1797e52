#include "pulse/simulate.h"

#include <fmt/format.h>

#include <cmath>

#include "pulse/secretion_model.h"

namespace tidemark::pulse {
namespace {

bool is_non_negative_finite(double x) {
  return std::isfinite(x) && x >= 0;
}

SimulatedSeries refused(std::string message) {
  SimulatedSeries s;
  s.status = SimulationStatus::kRefused;
  s.message = std::move(message);
  return s;
}

// The options' problem, or an empty text when they can be simulated.
std::string check_options(const SimulationOptions& o) {
  const ModelLayout layout{o.half_lives, 0};
  if (!layout.valid()) return "the number of half-lives must be 1, 2 or 3";
  if (static_cast<int>(o.fixed.size()) != layout.first_event_index()) {
    return fmt::format("{} half-lives need {} model parameters before the events", o.half_lives,
                       layout.first_event_index());
  }
  if (o.samples < 1 || o.samples > kMaxSimulatedSamples) {
    return fmt::format("the number of samples must lie in 1..{}", kMaxSimulatedSamples);
  }
  if (!(std::isfinite(o.interval) && o.interval > 0)) {
    return "the sampling interval must be positive and finite";
  }
  if (!is_non_negative_finite(o.noise_sd) || !is_non_negative_finite(o.noise_cv)) {
    return "the noise SD and CV must be zero or positive and finite";
  }
  if (o.replicates < 1 || o.replicates > kMaxSimulatedReplicates) {
    return fmt::format("the number of replicates must lie in 1..{}", kMaxSimulatedReplicates);
  }
  if (static_cast<int>(o.events.size()) > kMaxEvents) {
    return fmt::format("at most {} events can be simulated", kMaxEvents);
  }
  if (o.events.empty() && o.draw) {
    const RandomEvents& r = o.random_events;
    if (!(std::isfinite(r.mean_interval) && r.mean_interval > 0)) {
      return "the mean interval between events must be positive and finite";
    }
    if (!std::isfinite(r.mean_log_height) || !is_non_negative_finite(r.log_height_sd)) {
      return "the mean LogHeight must be finite and its SD zero or positive";
    }
  }
  return {};
}

// Events drawn up to time `end`; refused when more than kMaxEvents would be needed.
bool draw_events(const RandomEvents& r, double end, core::Random& random,
                 std::vector<SimulatedEvent>& events) {
  for (double p = (0.5 + random.uniform()) * r.mean_interval; p <= end;
       p += (0.5 + random.uniform()) * r.mean_interval) {
    if (static_cast<int>(events.size()) == kMaxEvents) return false;
    events.push_back({p, r.mean_log_height + r.log_height_sd * random.gaussian12()});
  }
  return true;
}

}  // namespace

SimulatedSeries simulate_series(const SimulationOptions& options, core::Random& random) {
  if (std::string problem = check_options(options); !problem.empty()) return refused(problem);
  const int n = options.samples;
  std::vector<SimulatedEvent> events = options.events;
  if (events.empty() && options.draw &&
      !draw_events(options.random_events, (n - 1) * options.interval, random, events)) {
    return refused(fmt::format(
        "more than {} events would be drawn: lengthen the mean interval or shorten the series",
        kMaxEvents));
  }

  SimulatedSeries s;
  s.layout = {options.half_lives, static_cast<int>(events.size())};
  s.parameters = options.fixed;
  for (const SimulatedEvent& e : events) {
    s.parameters.push_back(e.position);
    s.parameters.push_back(e.log_height);
  }
  s.time.resize(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) s.time[i] = static_cast<float>(i * options.interval);
  s.model.resize(s.time.size());
  const ModelResult model = evaluate_model(s.parameters, s.layout, s.time, s.model);
  if (!model.ok()) return refused(fmt::format("the model cannot be evaluated: {}", model.message));

  s.concentration.resize(s.time.size());
  s.sem.resize(s.time.size());
  const double root_replicates = std::sqrt(static_cast<double>(options.replicates));
  for (std::size_t i = 0; i < s.time.size(); ++i) {
    const double c = s.model[i];
    const double sd = options.noise_sd + options.noise_cv * std::fabs(c);
    double sum = 0;
    for (int r = 0; r < options.replicates; ++r) sum += c + sd * random.gaussian12();
    s.concentration[i] = static_cast<float>(sum / options.replicates);
    s.sem[i] = static_cast<float>(sd / root_replicates);
  }
  return s;
}

}  // namespace tidemark::pulse
