#include "stats/modes/cosine_mode.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/file_replace.h"
#include "core/fortran_format.h"
#include "core/missing.h"
#include "data/conditioner.h"
#include "shell/command_text.h"
#include "stats/cosine_start.h"
#include "stats/modes/cosine_graph.h"
#include "stats/modes/cosine_listing.h"

namespace tidemark::stats {

namespace {

using shell::ModuleContext;
using shell::Outcome;

constexpr std::string_view kErrorTitle = "Error Reported by Cosine";
// The results kept: the five fitted values and the percentage remaining.
using CosineResults = std::array<float, kCosineParameters + 1>;

// The points a fit uses: those of the crop range with a concentration and a replicate
// count other than 0.
void usable_points(const data::DataSet& set, std::vector<double>& t, std::vector<double>& y) {
  t.clear();
  y.clear();
  for (int i = set.first_point() - 1; i < set.last_point(); ++i) {
    if (core::is_missing(set.y()[i]) || set.reps()[i] == 0) continue;
    t.push_back(set.x()[i]);
    y.push_back(set.y()[i]);
  }
}

class CosineModule : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return cosine_dialog(); }
  std::string settings_file() const override { return "do_cosine.ini"; }
  std::vector<std::string> prefixes() const override { return {"COSINE"}; }

  Outcome calculate(ModuleContext& c) override {
    if (auto problem = prepare(c)) return Outcome::error({*problem});
    const CosineFlags flags = read_grid(c);
    const CosineFit fit = fit_cosine(t_, y_, grid_, flags, start_.reference_variance);
    const data::DataSet& set = c.store.current();
    write_graph(c, fit.values, fit.engine.code == Lsfit2Code::kOk);
    if (fit.engine.code != Lsfit2Code::kOk) {
      core::replace_file(c.listing, cosine_error_listing(set.file_name, fit.engine));
      c.log.log(lsfit2_error_line(fit.engine.code));
      return Outcome::error({lsfit2_error_line(fit.engine.code), fit.engine.message});
    }
    core::replace_file(c.listing, cosine_listing(set.file_name, fit, flags));
    c.log.log(cosine_variance_line(fit.engine.variance, fit.engine.points));
    c.log.log(cosine_remaining_line(fit.percent));
    grid_ = fit.values;
    CosineResults results{};
    for (int j = 0; j < kCosineParameters; ++j) results[j] = static_cast<float>(fit.values[j]);
    results[kCosineParameters] = static_cast<float>(fit.percent);
    results_.current = results;
    return Outcome::success();
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

  bool handle(std::string_view command, ModuleContext& c) override {
    if (shell::command_is(command, "COSINE_SUBTRACT")) {
      subtract(c);
    } else if (shell::command_is(command, "COSINE_RESET")) {
      reset(c);
    } else if (shell::command_is(command, "COSINE_STORE")) {
      store(c);
    } else {
      return false;
    }
    return true;
  }

 private:
  // Conditions the current data set and takes its usable points; on a data set not
  // seen before, runs the reference fit and the period scan and takes their defaults
  // as the starting values. The problem, when there is one.
  std::optional<std::string> prepare(ModuleContext& c) {
    const data::ConditionResult conditioned =
        data::condition(c.store.current(), false, c.ui, c.log);
    if (!conditioned.ok) return conditioned.message;
    usable_points(c.store.current(), t_, y_);
    if (c.store.current_index() != set_index_) {
      start_ = start_cosine(t_, y_);
      if (start_.reference.code != Lsfit2Code::kOk) {
        c.log.log(lsfit2_error_line(start_.reference.code));
        return lsfit2_error_line(start_.reference.code) + ": " + start_.reference.message;
      }
      set_index_ = c.store.current_index();
      grid_ = start_.defaults;
      seen_.fill(core::kUnset);
    }
    return std::nullopt;
  }

  // Takes the grid's starting values (a value given since the last reading replaces
  // the carried one) and returns the fit flags; each row is logged as it is read.
  CosineFlags read_grid(ModuleContext& c) {
    CosineFlags flags{};
    for (int j = 0; j < kCosineParameters; ++j) {
      const double given = std::get<double>(c.values[j]);
      if (!core::is_unset(given) && given != seen_[j]) grid_[j] = given;
      seen_[j] = given;
      flags[j] = std::get<bool>(c.values[kCosineParameters + j]);
      c.log.log(fmt::format("COSINE: {}{} Fit = {}", kCosineNames[j], core::format_g15_5(grid_[j]),
                            flags[j] ? 1 : 0));
    }
    return flags;
  }

  void write_graph(ModuleContext& c, const CosineValues& values, bool fitted) {
    const std::string source = cosine_graph_source(
        {c.store.current(), values, fitted, start_.scan_period, start_.scan_percent});
    core::replace_file(c.graph, source);
    c.ui.show_graph(c.graph.string());
  }

  void subtract(ModuleContext& c) {
    if (auto problem = prepare(c)) return ui::report(c.ui, c.log, kErrorTitle, {*problem});
    read_grid(c);
    data::DataSet& set = c.store.current();
    if (original_index_ != set_index_) {
      original_y_ = set.y();
      original_index_ = set_index_;
    }
    subtract_cosine(grid_, set.x(), set.y());
    c.log.log("COSINE_SUBTRACT: the data set " + set.file_name + " is modified");
  }

  void reset(ModuleContext& c) {
    data::DataSet& set = c.store.current();
    if (original_index_ != c.store.current_index() || original_y_.size() != set.y().size()) {
      return ui::report(c.ui, c.log, kErrorTitle, {"There is no subtracted series to reset."});
    }
    set.y() = original_y_;
    c.log.log("COSINE_RESET: the concentrations of " + set.file_name + " are restored");
  }

  // Appends a copy of the current (subtracted) series to the store, named with "_cos"
  // before the extension and handle + "_cos"; the current data set stays current.
  void store(ModuleContext& c) {
    const int current = c.store.current_index();
    data::DataSet copy = c.store.current();
    const auto dot = copy.file_name.rfind('.');
    copy.file_name.insert(dot == std::string::npos ? copy.file_name.size() : dot, "_cos");
    copy.handle += "_cos";
    const std::string name = copy.file_name;
    c.store.append(std::move(copy));
    c.store.select(current);
    c.log.log(fmt::format("COSINE_STORE: stored as data set {} ({})", c.store.count(), name));
  }

  int set_index_ = -1;
  CosineStart start_;
  std::vector<double> t_, y_;
  CosineValues grid_{};
  CosineValues seen_{};
  int original_index_ = -1;
  std::vector<float> original_y_;
  shell::KeptResults<CosineResults> results_;
};

}  // namespace

const ui::Dialog& cosine_dialog() {
  using ui::FieldKind;
  // The model's caption heads the grid of starting values.
  static const std::string kCaption = "Y=Amplitude*COS[2pi(X-Phase)/Period]+Mean+Slope*X";
  static const ui::Dialog dialog{"Cosine Analysis",
                                 {{"Period", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Amplitude", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Phase", FieldKind::kReal, "0", kCaption, {}},
                                  {"Mean", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Slope", FieldKind::kReal, "0", kCaption, {}},
                                  {"Fit Period", FieldKind::kCheck, "OFF", "Fit", {}},
                                  {"Fit Amplitude", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Phase", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Mean", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Slope", FieldKind::kCheck, "OFF", "Fit", {}}}};
  return dialog;
}

std::unique_ptr<shell::Module> make_cosine_module(int) {
  return std::make_unique<CosineModule>();
}

}  // namespace tidemark::stats
