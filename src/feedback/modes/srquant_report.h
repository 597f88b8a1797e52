#pragma once
// What an SRQuant calculation writes: the listing, the log lines, the answers block and
// the summary-book cells.
//
//   Signal-Response Quantification of testo.dat
//
//    Output   data set  1  testo.dat (T):   142 points used (missing 2, REPS 0 0)
//             138 fitted, outside the inputs' reach 4 before and 0 after; weights 1/SEM^2
//    Input 1  data set  2  lh.dat (LH):   144 points used (missing 0, REPS 0 0)
//   ...
//    Parameter            Start          Lower          Upper  Fit           Value      Std. Err.
//    Delay 1         90.000        0.0000         360.00      FIT         62.311         3.1120
//   ...
// Numbers in 1PG15.5. Rows of parameters the model does not use (the width without
// spreading, the second elimination with one) are left out.
#include <string>
#include <vector>

#include "data/summary_row.h"
#include "feedback/modes/srquant_run.h"

namespace tidemark::feedback {

// The summary book's columns: BY to DG (77 to 111).
inline constexpr int kFirstSummaryColumn = 77;
inline constexpr int kSummaryColumns = 10 + kPerInput * kMaxInputs;

// The whole listing; a run whose fit failed lists the model and starting values and
// says why.
std::string srquant_listing(const SRQuantRun& run);

// The log lines of a calculation: the data sets and the fit's measures, then the fitted
// parameters (or why the fit failed).
std::vector<std::string> srquant_log_lines(const SRQuantRun& run);

// The answers block of a successful fit.
std::string srquant_answers(const SRQuantRun& run);

// The summary-book cells of a successful fit: inputs, criterion, AIC, BIC, points, the
// five elimination parameters, then the five parameters of each of five inputs (missing
// where the model has no such input, or a single elimination).
data::SummaryRow srquant_summary(const SRQuantRun& run);

}  // namespace tidemark::feedback
