#pragma once
// The signal-response model: up to five input series, each delayed, spread and passed
// through a dose-response function, combined by sum or product with a basal rate into
// the secretion of the output hormone, which one or two exponential eliminations turn
// into its concentration.
//
//   S(t)  = basal + combine_i( f_i( (K_i * x_i)(t - D_i) ) )
//   dC/dt = S(t) - elimination,   C(t_0) = initial
//
// with x_i the input interpolated linearly between its samples, K_i a normalised
// Gaussian (sd W_i) or causal exponential (mean W_i) kernel, and f_i the stimulatory
// E x^n / (EC50^n + x^n) or inhibitory E EC50^n / (EC50^n + x^n) dose-response. The
// elimination and the numerical scheme are described at predict().
//
//   const ResponseModel model = ...;
//   const Prediction p = predict(model, values, data);
//   if (p.ok()) plot(data.time, p.conc);
#include <span>
#include <string>
#include <vector>

namespace tidemark::feedback {

enum class Spreading { kNone, kGaussian, kExponential };
enum class DoseResponse { kStimulatory, kInhibitory };
enum class Combination { kSum, kProduct };

// A parameter's starting value, bounds and whether the fit moves it.
struct Bounded {
  double start = 0, lower = 0, upper = 0;
  bool fit = true;
};

struct InputModel {
  Spreading spreading = Spreading::kNone;
  DoseResponse dose = DoseResponse::kStimulatory;
  Bounded delay, width, efficacy, ec50, hill;  // time units of the series for delay, width
};

inline constexpr int kMaxInputs = 5;

struct ResponseModel {
  std::vector<InputModel> inputs;  // 1 .. kMaxInputs
  Combination combination = Combination::kSum;
  int eliminations = 1;  // 1 or 2
  // initial: concentration at the first output time.
  Bounded basal, half_life, half_life_2, fraction_2, initial;
};

// A series as the kernel sees it: missing points already left out, times increasing.
struct Series {
  std::vector<double> time, value;
};

struct ResponseData {
  std::vector<double> time, conc, sem;  // the output (response); sem > 0
  std::vector<Series> inputs;           // one per InputModel, same order
};

// The parameter vector's layout: per input i (1-based) "Delay i", "Width i",
// "Efficacy i", "EC50 i", "Hill i"; then "Basal", "Half-Life", "Half-Life 2",
// "Fraction 2", "Initial". parameter_count(model) = 5 * inputs + 5 (the
// two-elimination ones are there, and held, when eliminations == 1).
int parameter_count(const ResponseModel& model);
std::vector<std::string> parameter_names(const ResponseModel& model);
std::vector<Bounded> parameter_bounds(const ResponseModel& model);  // in that order

// Index of the first parameter of input i (0-based) and of the elimination block.
inline constexpr int kPerInput = 5;
inline int input_offset(int input) { return kPerInput * input; }
inline int tail_offset(const ResponseModel& model) {
  return kPerInput * static_cast<int>(model.inputs.size());
}

struct Prediction {
  std::vector<double> conc;       // predicted output at ResponseData::time
  std::vector<double> secretion;  // secretion rate at the same times
  // Per input: its transformed (delayed, spread, dose-response) signal at those times.
  std::vector<std::vector<double>> drive;
  // Empty when the prediction could be made; otherwise why not (an input that does not
  // cover the times asked for, a parameter that cannot be used), and the vectors empty.
  std::string error;
  bool ok() const { return error.empty(); }
};

// The model's output at data.time for the parameter vector `parameters` (layout of
// parameter_names()). Only data.time and data.inputs are read.
Prediction predict(const ResponseModel& model, std::span<const double> parameters,
                   const ResponseData& data);

// Dose-response of input i alone at concentration x (for the graph's curves).
double dose_response(const InputModel& input, double efficacy, double ec50, double hill,
                     double x);

}  // namespace tidemark::feedback
