#pragma once
// The listing of the ApEn mode, built from its fixed fragments:
//
//   ApEn Calculation on lh.dat
//    Data were first differenced.            (when differenced)
//    Data were converted to Z-scores.        (when R is a fraction of the SD)
//    R =  0.20 with 1000 Monte-Carlo cycles
//   ApEn(1,0.20,144) =     0.91234
//   ApEn(2,0.20,144) =     0.71234
//    Noise Added =
//   Noise Added ApEn(1,0.20,144) =     0.90000     +/-    1.23450E-02
//   ...  Shuffled, Ratio (each a mean +/- SD), Z for Random and P for Random (values)
//
// R is written F5.2 (inside a label without its blanks), N as a plain integer, values
// in 1PG15.5; a value with no defined quotient (a zero divisor) as "Undefined".
#include <string>
#include <string_view>
#include <vector>

#include "stats/apen_analysis.h"

namespace tidemark::stats {

// The listing's lines for the data file `file_name`, with `r_setting` the dialog's R.
std::vector<std::string> apen_listing(std::string_view file_name, double r_setting,
                                      const ApEnResult& result);

// The dialog's six result fields, one per group of the listing, each the group's
// heading followed by its m = 1 and m = 2 figures without padding:
//   " Noise Added = 0.50275 +/- 4.01461E-02 (m=1), 0.31508 +/- 2.99893E-02 (m=2)"
// The data's own ApEn heads its field " ApEn = ".
std::vector<std::string> apen_result_fields(const ApEnResult& result);

// A listing value: 1PG15.5, or "Undefined" right-justified in 15 for a missing one.
std::string apen_value(float value);

}  // namespace tidemark::stats
