#include "pulse/modes/decon_mode.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <sstream>

#include "core/file_replace.h"
#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/conditioner.h"
#include "data/secretion_events.h"
#include "pulse/cluster8.h"
#include "pulse/decon_summary.h"
#include "pulse/modes/decon_graph.h"
#include "pulse/modes/decon_listing.h"
#include "pulse/modes/decon_report.h"
#include "shell/command_table.h"
#include "ui/work_progress.h"

namespace tidemark::pulse {
namespace {

// Dialog fields, in order: the eight model parameters with their fit flags, the
// read-only half-duration, then the options.
constexpr int kFitFlagOffset = 8;
enum Field {
  kHalfDurationField = 16,
  kHalfLivesField,
  kSourceField,
  kCriticalPField,
  kSdFactorField,
};
constexpr int kMinSamples = 8;

// The event commands of Deconv.
constexpr std::string_view kAdd = "DECON_EVENT_ADD";
constexpr std::string_view kRemove = "DECON_EVENT_REMOVE";
constexpr std::string_view kFix = "DECON_EVENT_FIX";
constexpr std::string_view kFree = "DECON_EVENT_FREE";
constexpr std::string_view kReset = "DECON_EVENT_RESET";

ui::Dialog make_dialog(int variant) {
  const std::array<const char*, 8> defaults = {"0.05", "1.0", "5.0", "60.0", "0.5", "200.0", "0.1", "1000.0"};
  ui::Dialog d{variant == 0 ? "Automatic Deconvolution" : "Deconvolution", {}};
  for (int j = 0; j < 8; ++j) {
    d.fields.push_back({std::string(kFixedParameterNames[j]), ui::FieldKind::kReal, defaults[j],
                        "Starting Values", {}});
  }
  for (int j = 0; j < 8; ++j) {
    d.fields.push_back({"Fit " + std::string(kFixedParameterNames[j]), ui::FieldKind::kCheck, "ON",
                        "Fit or Hold", {}});
  }
  d.fields.push_back({std::string(kHalfDurationLabel), ui::FieldKind::kReal, "11.77", "Results", {}, true});
  d.fields.push_back({"Number of Half-Lives", ui::FieldKind::kMenu, "1", "Model", {"1", "2", "3"}});
  d.fields.push_back({"Starting Events", ui::FieldKind::kMenu, "AutoInit", "Model",
                      {"AutoInit", "Use Cluster8 Results", "Data Set Events", "None"}});
  d.fields.push_back({"Critical P", ui::FieldKind::kReal, "0.2", "Model", {}});
  d.fields.push_back({"AutoInit SD Factor", ui::FieldKind::kMenu, "0.5", "Model",
                      {"0.5", "0.33333333333", "0.25", "0.125", "0.0625"}});
  return d;
}

double real(const std::vector<ui::FieldValue>& v, int i) {
  return std::get<double>(v[static_cast<std::size_t>(i)]);
}

// Cluster8's peaks (default settings) as starting events on the secretion scale: a peak
// that raised the concentration by an increase D came from a burst of mass about D, so
// its peak secretion rate is D / (SD sqrt(2 pi)) (the concentration scale is not the
// secretion scale; the increase alone would overstate the rate by SD sqrt(2 pi)).
std::vector<SimulatedEvent> cluster8_start(const DeconRun& run, double sigma) {
  std::vector<Cluster8Sample> samples;
  for (std::size_t i = 0; i < run.time.size(); ++i) {
    if (run.time[i] <= 0) continue;  // Cluster8's grid starts one interval in
    samples.push_back({float(run.concentration[i]), float(run.sd[i]), run.time[i], 1.0f});
  }
  const Cluster8Result r = run_cluster8(samples, {});
  std::vector<SimulatedEvent> events;
  if (!r.ok()) return events;
  for (const Cluster8Peak& p : r.peaks) {
    const double rise = p.increase > 0 ? p.increase : p.largest;
    if (rise > 0) events.push_back({r.grid.times[p.position], std::log10(rise / event_mass(0, sigma))});
  }
  return events;
}

// One event of Deconv's working list.
struct WorkEvent {
  double position = 0;
  double log_height = 0;
  bool free = true;
};

class DeconMode : public shell::Module {
 public:
  explicit DeconMode(int variant) : variant_(variant), dialog_(make_dialog(variant)) {}

  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_decon.ini"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    DeconRun run;
    run.mode_name = variant_ == 0 ? "AutoDecon" : "Deconv";
    run.file_name = set.file_name;
    run.handle = set.handle;
    run.concentration_header = set.concentration_header();
    run.source = static_cast<EventSource>(c.value<int>(kSourceField));
    run.critical_p = real(c.values, kCriticalPField);
    // The conditioner works on a copy, which replaces the data set only when the
    // calculation has results: a refusal leaves the set as it was (order, points, slots).
    data::DataSet conditioned_set = set;
    const data::ConditionResult conditioned = data::condition(conditioned_set, false, c.ui, c.log);
    if (!conditioned.ok()) return refuse(run, "The data set could not be conditioned: " + conditioned.message);
    if (std::string problem = take_samples(conditioned_set, run); !problem.empty()) return refuse(run, problem);
    if (!(run.critical_p > 0 && run.critical_p < 1)) {
      return refuse(run, "The Critical P must lie between 0 and 1.");
    }

    std::string problem;
    const std::optional<ModelVector> start = starting_vector(run, c, problem);
    if (!start) return refuse(run, problem);
    if (variant_ == 0) {
      AutoDeconOptions options;
      options.critical_p = run.critical_p;
      const auto progress = c.ui.progress("AutoDecon search");
      options.progress = ui::report_to(progress.get());
      run.result = auto_decon({run.time, run.concentration, run.sd}, *start, options);
      if (run.result.status == AutoDeconStatus::kCancelled) {
        return shell::ModeResult::failed({"AutoDecon calculation cancelled."});
      }
    } else {
      run.result = fit_and_test({run.time, run.concentration, run.sd}, *start);
    }
    if (!run.result.ok()) {
      const DeconFitResult& f = run.result.fit;
      return refuse(run, fmt::format("The fit failed with code {}: {}", stats::code_number(f.code), f.message));
    }
    if (run.auto_init_ran && !run.init.ok()) {
      c.ui.message(run.init.status == AutoInitStatus::kNoEvents ? run.mode_name : kAutoInitFailedTitle,
                   {run.init.message});
    }
    set = std::move(conditioned_set);
    return shell::ModeResult::done(finish(run, c));
  }

  bool handle(std::string_view command, shell::ModuleContext& c) override {
    if (variant_ != 1) return false;
    using Command = shell::NamedCommand<DeconMode, shell::ModuleContext>;
    static constexpr std::array<Command, 5> kCommands{{
        {kAdd, event_command_handler<&kAdd>},
        {kRemove, event_command_handler<&kRemove>},
        {kFix, event_command_handler<&kFix>},
        {kFree, event_command_handler<&kFree>},
        {kReset, event_command_handler<&kReset>},
    }};
    return shell::dispatch(kCommands, command, *this, c);
  }

 private:
  // A calculation that stops before it has results: the box and the log say why, and so
  // does the listing; the data set, its answers and the dialog stay as they were.
  static shell::ModeResult refuse(DeconRun& run, std::string why) {
    run.refusal = std::move(why);
    shell::ModeOutput output;
    output.listing = decon_listing(run);
    return shell::ModeResult::failed({run.refusal}, std::move(output));
  }

  // Takes the samples to fit: the crop range's points with a time, a concentration and a
  // positive SD. Why the set cannot be fitted (too few of them, no positive SD), or empty.
  static std::string take_samples(const data::DataSet& set, DeconRun& run) {
    int without_sd = 0;
    for (int p = set.first_point(); p <= set.last_point(); ++p) {
      const auto i = static_cast<std::size_t>(p - 1);
      const float y = set.y()[i];
      const float sd = set.dy()[i];
      if (core::is_missing(y) || set.x()[i] < -9.9e34f) continue;
      if (core::is_missing(sd) || !(sd > 0)) {
        ++without_sd;
        continue;
      }
      run.time.push_back(set.x()[i]);
      run.concentration.push_back(y);
      run.sd.push_back(sd);
    }
    if (static_cast<int>(run.time.size()) >= kMinSamples) return {};
    if (without_sd > 0 && run.time.empty()) {
      return "The SD column holds no positive value: the fit weighs each sample by 1/SD^2 and "
             "needs SDs above 0.";
    }
    return fmt::format("Too few samples to deconvolve: {} with a concentration and a positive SD, "
                       "at least {} needed.", run.time.size(), kMinSamples);
  }

  // The starting vector: the dialog's values and flags, AutoInit's estimates where it
  // ran, and the events of the chosen source (Deconv: its working list once it has one).
  // No vector, with `problem` set, when a starting value is refused.
  std::optional<ModelVector> starting_vector(DeconRun& run, shell::ModuleContext& c,
                                             std::string& problem) {
    const int half_lives = std::get<int>(c.values[kHalfLivesField]) + 1;
    ModelVector v{{half_lives, 0}, {}, {}};
    for (int j = 0; j < v.layout.first_event_index(); ++j) {
      v.values.push_back(real(c.values, j));
      v.free.push_back(std::get<bool>(c.values[static_cast<std::size_t>(kFitFlagOffset + j)]));
    }
    std::vector<SimulatedEvent> events;
    const bool use_working = variant_ == 1 && working_.has_value();
    if (run.source == EventSource::kAutoInit && !use_working) {
      run.auto_init_ran = true;
      run.init = auto_init(run.time, run.concentration, run.sd,
                           {std::get<int>(c.values[kSdFactorField])});
      if (run.init.status == AutoInitStatus::kOk || run.init.status == AutoInitStatus::kNoEvents) {
        v.values[kBasal] = run.init.basal;
        v.values[kConc0] = run.init.conc0;
        v.values[kSecretionSd] = run.init.sd;
        v.values[kHalfLife1] = run.init.half_life;
        events = run.init.events;
      }
    }
    const double span = double(run.time.back()) - double(run.time.front());
    const std::array<int, 3> hl = {kHalfLife1, kHalfLife2, kHalfLife3};
    for (int j = 0; j < half_lives; ++j) {
      const double h = v.values[hl[j]];
      if (!(h > 0 && h <= span)) {
        problem = fmt::format("{} = {} lies outside the series' span (0 to {}).",
                              kFixedParameterNames[hl[j]], core::trim(core::format_g15_5(h)),
                              core::trim(core::format_g15_5(span)));
        return std::nullopt;
      }
    }
    if (!(v.values[kSecretionSd] > 0)) {
      problem = "SEC. SD. must be above 0.";
      return std::nullopt;
    }
    if (run.source == EventSource::kCluster8 && !use_working) events = cluster8_start(run, v.values[kSecretionSd]);
    if (run.source == EventSource::kDataSet && !use_working) {
      for (const data::SecretionEvent& e : data::secretion_events(c.store.current())) {
        if (!core::is_missing(e.log_height)) events.push_back({e.position, e.log_height});
      }
    }
    if (use_working) {
      for (const WorkEvent& e : *working_) v.insert_event(e.position, e.log_height, e.free);
    } else {
      for (const SimulatedEvent& e : events) v.insert_event(e.position, e.log_height);
    }
    return v;
  }

  // The listing, graph, answers, log line, summary cells, model parameters (answers 1..8)
  // and events for the frame to write.
  shell::ModeOutput finish(DeconRun& run, shell::ModuleContext& c) {
    shell::ModeOutput output;
    output.listing = decon_listing(run);
    output.graph = decon_graph(run);
    output.answers = decon_answers(run);
    output.log_lines = {decon_log_line(run)};
    put_decon_summary(output.summary, run);
    output.events = decon_events(run);
    output.model_parameters = decon_model_parameters(run);
    // The fitted values become the next starting values, and Deconv's working list.
    const ModelVector& v = run.result.fit.model;
    for (int j = 0; j < v.layout.first_event_index(); ++j) c.values[static_cast<std::size_t>(j)] = v.values[j];
    c.values[kHalfDurationField] = half_duration(v.values[kSecretionSd]);
    if (variant_ == 1) {
      working_.emplace();
      for (int e = 0; e < v.layout.events; ++e) {
        const auto p = static_cast<std::size_t>(v.layout.position_index(e));
        working_->push_back({v.values[p], v.values[p + 1], v.free[p]});
      }
    }
    return output;
  }

  // The handler of event command *Name in the command table. A refused command is still
  // recorded, so that a replay meets the same message.
  template <const std::string_view* Name>
  static void event_command_handler(std::string_view command, DeconMode& mode,
                                    shell::ModuleContext& c) {
    const std::string argument = core::to_upper(shell::command_argument(command, *Name));
    const std::string problem = mode.event_command(*Name, argument);
    if (!problem.empty()) c.refuse("Error Reported by " + std::string(c.mode_name), {problem});
  }

  // Carries out one event command; the problem in words, or empty.
  std::string event_command(std::string_view name, const std::string& argument) {
    if (name == kReset) {
      working_.reset();
      return {};
    }
    std::vector<double> numbers;
    std::istringstream words(argument);
    for (std::string word; words >> word;) {
      double x = 0;
      const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), x);
      if (ec != std::errc() || end != word.data() + word.size() || !std::isfinite(x)) {
        return fmt::format("{}: '{}' is not a number.", name, word);
      }
      numbers.push_back(x);
    }
    if (!working_) working_.emplace();
    if (name == kAdd) {
      if (numbers.empty() || numbers.size() > 2) return "DECON_EVENT_ADD takes a time and, optionally, a LogHeight.";
      if (static_cast<int>(working_->size()) >= kMaxEvents) return "The model takes at most 96 events.";
      const double log_height = numbers.size() == 2 ? numbers[1] : default_log_height();
      auto at = working_->begin();
      while (at != working_->end() && at->position <= numbers[0]) ++at;
      working_->insert(at, {numbers[0], log_height, true});
      return {};
    }
    if (numbers.size() != 1 || numbers[0] != std::floor(numbers[0]) || numbers[0] < 1 ||
        numbers[0] > static_cast<double>(working_->size())) {
      return fmt::format("{} takes the number of an event, 1 to {}.", name, working_->size());
    }
    const auto k = static_cast<std::size_t>(numbers[0]) - 1;
    if (name == kRemove) working_->erase(working_->begin() + static_cast<std::ptrdiff_t>(k));
    if (name == kFix) (*working_)[k].free = false;
    if (name == kFree) (*working_)[k].free = true;
    return {};
  }

  // A new event's LogHeight when the command gives none: the mean of the working list,
  // or that of a burst of mass 1 at the dialog's SD.
  double default_log_height() const {
    if (working_ && !working_->empty()) {
      double sum = 0;
      for (const WorkEvent& e : *working_) sum += e.log_height;
      return sum / static_cast<double>(working_->size());
    }
    return std::log10(1 / event_mass(0, 5.0));
  }

  int variant_;
  ui::Dialog dialog_;
  // Deconv's events between calculations; empty until the first calculation or command.
  std::optional<std::vector<WorkEvent>> working_;
};

}  // namespace

std::unique_ptr<shell::Module> make_decon_mode(int variant) {
  return std::make_unique<DeconMode>(variant);
}

}  // namespace tidemark::pulse
