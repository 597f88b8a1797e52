#include "feedback/modes/srquant_mode.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "core/fortran_format.h"
#include "core/text.h"
#include "feedback/modes/srquant_choices.h"
#include "feedback/modes/srquant_defaults.h"
#include "feedback/modes/srquant_graph.h"
#include "feedback/modes/srquant_parameters.h"
#include "feedback/modes/srquant_report.h"
#include "shell/command_table.h"
#include "ui/work_progress.h"

namespace tidemark::feedback {

namespace {

using shell::ModeResult;
using shell::ModuleContext;

constexpr std::string_view kErrorTitle = "Error Reported by SRQuant";

// The dialog's fields, in dialog order (srquant_dialog). Each input has three fields from
// kFirstInputField on: its data set, spreading and dose-response (input_field).
constexpr int kFieldsPerInput = 3;
enum Field {
  kOutputSet,
  kInputCount,
  kFirstInputField,
  kCombination = kFirstInputField + kFieldsPerInput * kMaxInputs,
  kEliminations,
  kCriterion,
  kOptimizer,
  kSwarmSize,
  kIterations,
  kCriterionValue,
  kAic,
  kBic,
};
enum InputField { kInputSet, kInputSpreading, kInputDose };

int input_field(int input, InputField field) {
  return kFirstInputField + kFieldsPerInput * input + field;
}

template <std::size_t N>
std::vector<std::string> choices(const std::array<std::string_view, N>& names) {
  return {names.begin(), names.end()};
}

void show_results(ModuleContext& c, const ResponseFitResult* fit) {
  const auto text = [fit](double v) {
    return fit ? std::string(core::trim(core::format_g15_5(v))) : std::string();
  };
  c.value<std::string>(kCriterionValue) = text(fit ? fit->criterion : 0);
  c.value<std::string>(kAic) = text(fit ? fit->aic : 0);
  c.value<std::string>(kBic) = text(fit ? fit->bic : 0);
}

// A refusal before the fit: the message titled for the mode (and logged by the frame);
// the listing, graph and data sets stay as they were.
ModeResult refusal(ModuleContext& c, const std::string& message) {
  show_results(c, nullptr);
  return ModeResult::failed({message});
}

class SRQuantMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return srquant_dialog(); }
  std::string settings_file() const override { return "do_srquant.ini"; }

  ModeResult calculate(ModuleContext& c) override {
    SRQuantRun run;
    const int count = c.value<int>(kInputCount) + 1;
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i) numbers.push_back(c.value<int>(input_field(i, kInputSet)));
    run.series = read_response_series(c.store, c.value<int>(kOutputSet), numbers);
    if (!run.series.ok()) return refusal(c, run.series.problem);
    run.model = model_of(c, count);
    put_default_parameters(run.model, run.series.data);
    run.user_set = apply_settings(run.model, settings_);
    hold_unused(run.model);
    keep_reach(run.series, run.model);
    if (!run.series.ok()) return refusal(c, run.series.problem);
    Bounded& initial = run.model.initial;
    if (!settings_.contains("Initial") && !run.series.data.conc.empty()) {
      initial.start = std::clamp(run.series.data.conc.front(), initial.lower, initial.upper);
    }
    run.options = options_of(c);
    auto progress = c.ui.progress("SRQuant fit");
    run.options.parallel.progress = ui::report_to(progress.get());
    run.fit = fit_response(run.model, run.series.data, run.options);
    progress.reset();
    if (run.fit.status == ResponseFitStatus::kCancelled) return refusal(c, run.fit.message);
    shell::ModeOutput output{.listing = srquant_listing(run), .log_lines = srquant_log_lines(run)};
    if (!run.fit.ok()) {
      show_results(c, nullptr);
      return ModeResult::failed({run.fit.message}, std::move(output));
    }
    output.graph = srquant_graph(run, c.store.at(run.series.output.number - 1));
    output.answers = srquant_answers(run);
    output.summary = srquant_summary(run);
    output.data_set = run.series.output.number - 1;
    show_results(c, &run.fit);
    return ModeResult::done(std::move(output));
  }

  bool handle(std::string_view command, ModuleContext& c) override {
    using Command = shell::NamedCommand<SRQuantMode, ModuleContext>;
    static constexpr std::string_view kSet = "DOSE_RESPONSE_PARAMETER";
    static constexpr std::string_view kSetShort = "RESPONSE_PARAMETER";
    static constexpr std::array<Command, 4> kCommands{{
        {kSet,
         [](std::string_view cmd, SRQuantMode& m, ModuleContext& mc) {
           m.set_parameter(cmd.substr(kSet.size()), mc);
         }},
        {kSetShort,
         [](std::string_view cmd, SRQuantMode& m, ModuleContext& mc) {
           m.set_parameter(cmd.substr(kSetShort.size()), mc);
         }},
        {"DOSE_RESPONSE_DEFAULTS",
         [](std::string_view, SRQuantMode& m, ModuleContext& mc) { m.reset(mc); }},
        {"RESPONSE_DEFAULTS",
         [](std::string_view, SRQuantMode& m, ModuleContext& mc) { m.reset(mc); }},
    }};
    return shell::dispatch(kCommands, command, *this, c);
  }

 private:
  static ResponseModel model_of(ModuleContext& c, int count) {
    ResponseModel model;
    for (int i = 0; i < count; ++i) {
      InputModel in;
      in.spreading = static_cast<Spreading>(c.value<int>(input_field(i, kInputSpreading)));
      in.dose = static_cast<DoseResponse>(c.value<int>(input_field(i, kInputDose)));
      model.inputs.push_back(in);
    }
    model.combination = static_cast<Combination>(c.value<int>(kCombination));
    model.eliminations = c.value<int>(kEliminations) + 1;
    return model;
  }

  // The parameters the model does not use stay held whatever the user set: an input's
  // width without spreading, the second elimination with one.
  static void hold_unused(ResponseModel& model) {
    for (InputModel& in : model.inputs) {
      if (in.spreading == Spreading::kNone) in.width.fit = false;
    }
    if (model.eliminations == 1) model.half_life_2.fit = model.fraction_2.fit = false;
  }

  // The fit's options; its seed is drawn from the session's generator (SEED).
  static ResponseFitOptions options_of(ModuleContext& c) {
    ResponseFitOptions o;
    o.criterion = static_cast<Criterion>(c.value<int>(kCriterion));
    o.optimizer = static_cast<Optimizer>(c.value<int>(kOptimizer));
    o.swarm_size = c.value<int>(kSwarmSize);
    o.iterations = c.value<int>(kIterations);
    o.seed = c.random.next();
    return o;
  }

  // A refused setting changes nothing; the command is still recorded, so that a replay
  // meets the same message.
  void set_parameter(std::string_view argument, ModuleContext& c) {
    const ParameterParse parsed = parse_parameter_setting(argument);
    if (!parsed.ok()) return c.refuse(kErrorTitle, {parsed.problem});
    const ParameterSetting& s = parsed.setting;
    settings_[s.name] = s.value;
    c.log.log(fmt::format("SRQuant: {} start {}, bounds {} to {}, {}", s.name, s.value.start,
                          s.value.lower, s.value.upper, s.value.fit ? "FIT" : "HOLD"));
  }

  void reset(ModuleContext& c) {
    settings_.clear();
    c.log.log("SRQuant: every parameter takes its default from the data");
  }

  ParameterSettings settings_;
};

}  // namespace

const ui::Dialog& srquant_dialog() {
  using ui::FieldKind;
  static const ui::Dialog dialog = [] {
    ui::Dialog d{"Signal-Response Quantification",
                 {{"Output Data Set", FieldKind::kInteger, "1", "Data Sets", {}},
                  {"Number of Inputs", FieldKind::kMenu, "1", "Data Sets",
                   {"1", "2", "3", "4", "5"}}}};
    for (int i = 1; i <= kMaxInputs; ++i) {
      const std::string grid = fmt::format("Input {}", i);
      d.fields.push_back({fmt::format("Input {} Data Set", i), FieldKind::kInteger,
                          std::to_string(i + 1), grid, {}});
      d.fields.push_back({fmt::format("Input {} Spreading", i), FieldKind::kMenu, "None", grid,
                          choices(kSpreadingNames)});
      d.fields.push_back({fmt::format("Input {} Dose-Response", i), FieldKind::kMenu,
                          "Stimulatory", grid, choices(kDoseNames)});
    }
    const std::vector<ui::Field> rest{
        {"Combination", FieldKind::kMenu, "Sum", "Model", choices(kCombinationNames)},
        {"Eliminations", FieldKind::kMenu, "1", "Model", {"1", "2"}},
        {"Criterion", FieldKind::kMenu, "Least Squares", "Fit", choices(kCriterionNames)},
        {"Optimiser", FieldKind::kMenu, "Swarm then Levenberg-Marquardt", "Fit",
         choices(kOptimizerNames)},
        {"Swarm Size", FieldKind::kInteger, "40", "Fit", {}},
        {"Iterations", FieldKind::kInteger, "200", "Fit", {}},
        {"Criterion Value", FieldKind::kText, "", "Results", {}, true},
        {"AIC", FieldKind::kText, "", "Results", {}, true},
        {"BIC", FieldKind::kText, "", "Results", {}, true}};
    d.fields.insert(d.fields.end(), rest.begin(), rest.end());
    return d;
  }();
  return dialog;
}

std::unique_ptr<shell::Module> make_srquant_mode() {
  return std::make_unique<SRQuantMode>();
}

}  // namespace tidemark::feedback
