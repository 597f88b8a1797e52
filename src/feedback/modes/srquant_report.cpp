#include "feedback/modes/srquant_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "feedback/modes/srquant_choices.h"

namespace tidemark::feedback {

namespace {

std::string g(double v) {
  return core::format_g15_5(v);
}

// False for the parameters the model does not use: an input's width without spreading,
// the second elimination's half-life and fraction with one elimination.
bool in_use(const ResponseModel& model, int k) {
  const int tail = tail_offset(model);
  if (k < tail) {
    const InputModel& in = model.inputs[static_cast<std::size_t>(k / kPerInput)];
    return k % kPerInput != 1 || in.spreading != Spreading::kNone;
  }
  return model.eliminations == 2 || (k != tail + 2 && k != tail + 3);
}

std::string series_line(const std::string& label, const SeriesUse& use) {
  return fmt::format(" {:<8} data set {:2d}  {} ({}): {:5d} points used (missing {}, REPS 0 {})\n",
                     label, use.number, use.file_name, use.handle, use.used, use.missing,
                     use.unreplicated);
}

std::string data_block(const SRQuantRun& run) {
  const ResponseSeries& s = run.series;
  std::string text = series_line("Output", s.output);
  text += fmt::format("          {} fitted, outside the inputs' reach {} before and {} after; "
                      "weights {}\n",
                      s.data.time.size(), s.early, s.late,
                      s.sem_weights ? "1/SEM^2" : "equal (an SEM is missing or 0)");
  for (std::size_t i = 0; i < s.inputs.size(); ++i) {
    text += series_line(fmt::format("Input {}", i + 1), s.inputs[i]);
  }
  return text;
}

std::string model_block(const SRQuantRun& run) {
  const ResponseModel& m = run.model;
  std::string text = " Model\n";
  for (std::size_t i = 0; i < m.inputs.size(); ++i) {
    const InputModel& in = m.inputs[i];
    const std::size_t n = i + 1;
    const std::string handle =
        i < run.series.inputs.size() ? run.series.inputs[i].handle : fmt::format("input {}", n);
    text += fmt::format("  Input {}: {} delayed by Delay {}", n, handle, n);
    if (in.spreading == Spreading::kGaussian) {
      text += fmt::format(", spread by a Gaussian of SD Width {}", n);
    } else if (in.spreading == Spreading::kExponential) {
      text += fmt::format(", spread by an exponential of mean Width {}", n);
    }
    const std::string e = fmt::format("Efficacy {}", n), c = fmt::format("EC50 {}", n),
                      h = fmt::format("Hill {}", n);
    text += in.dose == DoseResponse::kStimulatory
                ? fmt::format(";\n           stimulatory {0} x^{2} / ({1}^{2} + x^{2})\n", e, c, h)
                : fmt::format(";\n           inhibitory {0} {1}^{2} / ({1}^{2} + x^{2})\n", e, c, h);
  }
  text += fmt::format("  Secretion = Basal + the {} of the inputs' responses\n",
                      m.combination == Combination::kSum ? "sum" : "product");
  text += m.eliminations == 1
              ? "  Elimination: one exponential (Half-Life)\n"
              : "  Elimination: two exponentials (Half-Life, and Half-Life 2 of Fraction 2)\n";
  text += "  Initial = the concentration at the first fitted time\n";
  const ResponseFitOptions& o = run.options;
  text += fmt::format(" Criterion: {}; optimiser: {}", name_of(kCriterionNames, o.criterion),
                      name_of(kOptimizerNames, o.optimizer));
  if (o.optimizer != Optimizer::kNelderMead && o.optimizer != Optimizer::kLevenbergMarquardt) {
    text += fmt::format(" (swarm of {}, {} iterations)", o.swarm_size, o.iterations);
  }
  return text + "\n";
}

// "  at lower bound" or "  at upper bound" for a fitted value on (within 1e-6 of the
// range) a bound, where the data ask for more than the bounds allow; empty otherwise.
std::string bound_mark(double value, const Bounded& b) {
  const double near = 1e-6 * (b.upper - b.lower);
  if (value <= b.lower + near) return "  at lower bound";
  if (value >= b.upper - near) return "  at upper bound";
  return {};
}

std::string parameter_table(const SRQuantRun& run) {
  const ResponseModel& model = run.model;
  const std::vector<std::string> names = parameter_names(model);
  const std::vector<Bounded> bounds = parameter_bounds(model);
  const ResponseFitResult& f = run.fit;
  const bool fitted = f.ok() && f.values.size() == names.size();
  // The titles end where the numbers' digits end, 4 blanks before the end of a field.
  std::string text = " Parameter         Start          Lower          Upper      Fit";
  text += fitted ? "       Value      Std. Err.\n" : "\n";
  for (std::size_t k = 0; k < names.size(); ++k) {
    if (!in_use(model, static_cast<int>(k))) continue;
    const Bounded& b = bounds[k];
    const bool user = std::find(run.user_set.begin(), run.user_set.end(), names[k]) !=
                      run.user_set.end();
    text += fmt::format(" {:<11}{}{}{}{}  {}", names[k], user ? '*' : ' ', g(b.start), g(b.lower),
                        g(b.upper), b.fit ? "FIT " : "HOLD");
    if (fitted) {
      text += g(f.values[k]);
      const double se = k < f.standard_errors.size() ? f.standard_errors[k] : NAN;
      const bool has_se = b.fit && std::isfinite(se);
      const std::string mark = b.fit && b.lower < b.upper ? bound_mark(f.values[k], b) : "";
      if (has_se) text += g(se);
      if (!mark.empty()) text += (has_se ? "" : std::string(15, ' ')) + mark;
    }
    text += "\n";
  }
  if (!run.user_set.empty()) text += " * set by DOSE_RESPONSE_PARAMETER; the others from the data\n";
  if (text.find(" bound\n") != std::string::npos) {
    text += " A value at a bound: the data ask for more than the bounds allow; widen them\n"
            " (DOSE_RESPONSE_PARAMETER) or hold the parameter.\n";
  }
  return text;
}

std::string measures_block(const ResponseFitResult& f, Criterion criterion) {
  return fmt::format(" {:<15}={}\n {:<15}={}\n {:<15}={}\n", name_of(kCriterionNames, criterion),
                     g(f.criterion), "AIC", g(f.aic), "BIC", g(f.bic)) +
         fmt::format(" Points = {}, free parameters = {}, evaluations = {}\n", f.points,
                     f.free_parameters, f.evaluations);
}

std::string value_text(double v) {
  return std::string(core::trim(g(v)));
}

}  // namespace

std::string srquant_listing(const SRQuantRun& run) {
  std::string text =
      "Signal-Response Quantification of " + run.series.output.file_name + "\n\n";
  text += data_block(run) + "\n" + model_block(run) + "\n" + parameter_table(run) + "\n";
  if (run.fit.ok()) return text + measures_block(run.fit, run.options.criterion);
  return text + " The fit failed: " + run.fit.message + "\n";
}

std::vector<std::string> srquant_log_lines(const SRQuantRun& run) {
  std::string inputs;
  for (const SeriesUse& in : run.series.inputs) {
    inputs += (inputs.empty() ? "" : ", ") + in.file_name;
  }
  std::vector<std::string> lines{
      fmt::format("SRQuant: output {}, inputs {}", run.series.output.file_name, inputs)};
  const ResponseFitResult& f = run.fit;
  if (!f.ok()) {
    lines.push_back("SRQuant: no fit: " + f.message);
    return lines;
  }
  lines.push_back(fmt::format("SRQuant: {} = {}, AIC = {}, BIC = {}, {} points, {} free",
                              name_of(kCriterionNames, run.options.criterion),
                              value_text(f.criterion), value_text(f.aic), value_text(f.bic),
                              f.points, f.free_parameters));
  const ResponseModel& model = run.model;
  const std::vector<std::string> names = parameter_names(model);
  std::string values;
  for (std::size_t k = 0; k < names.size() && k < f.values.size(); ++k) {
    if (!in_use(model, static_cast<int>(k))) continue;
    values += (values.empty() ? "" : ", ") + names[k] + " = " + value_text(f.values[k]);
  }
  lines.push_back("SRQuant: " + values);
  return lines;
}

std::string srquant_answers(const SRQuantRun& run) {
  const ResponseFitResult& f = run.fit;
  const ResponseModel& model = run.model;
  const std::vector<std::string> names = parameter_names(model);
  std::string text = "SRQuant results for " + run.series.output.file_name + "\n";
  for (std::size_t k = 0; k < names.size() && k < f.values.size(); ++k) {
    if (!in_use(model, static_cast<int>(k))) continue;
    const double se = k < f.standard_errors.size() ? f.standard_errors[k] : NAN;
    text += fmt::format(" {} = {}", names[k], g(f.values[k]));
    if (std::isfinite(se)) text += "  SE = " + g(se);
    text += "\n";
  }
  return text + fmt::format(" CRITERION = {}  AIC = {}  BIC = {}\n", g(f.criterion), g(f.aic),
                            g(f.bic));
}

data::SummaryRow srquant_summary(const SRQuantRun& run) {
  const ResponseFitResult& f = run.fit;
  const ResponseModel& model = run.model;
  const std::vector<std::string> names = parameter_names(model);
  const auto value = [&](std::size_t k) {
    return k < f.values.size() && in_use(model, static_cast<int>(k)) ? f.values[k]
                                                                       : core::kMissing;
  };
  std::vector<std::pair<std::string, double>> cells{
      {"Inputs", static_cast<double>(model.inputs.size())},
      {"Criterion", f.criterion},
      {"AIC", f.aic},
      {"BIC", f.bic},
      {"Points", static_cast<double>(f.points)}};
  const std::size_t tail = static_cast<std::size_t>(tail_offset(model));
  for (std::size_t k = tail; k < names.size(); ++k) cells.emplace_back(names[k], value(k));
  ResponseModel largest;
  largest.inputs.resize(kMaxInputs);
  const std::vector<std::string> all = parameter_names(largest);
  for (std::size_t k = 0; k < static_cast<std::size_t>(tail_offset(largest)); ++k) {
    cells.emplace_back(all[k], k < tail ? value(k) : core::kMissing);
  }
  data::SummaryRow row;
  int column = kFirstSummaryColumn;
  for (const auto& [title, v] : cells) {
    row[data::column_letters(column++)] = {"SRQuant " + title, static_cast<float>(v)};
  }
  return row;
}

}  // namespace tidemark::feedback
