#pragma once
// The listing of a Cosine calculation.
//
//   Cosine Analysis of lh.dat
//
//   Parameter           Value      Lower 95%      Upper 95%
//   Period         24.000
//   Amplitude      3.0000         2.9000         3.1000
//   ...
//    Variance =     0.12345E-01 with 48
//        5.1234     % variance remaining
//
// A fitted parameter's line carries the engine's 95 % interval about the reported
// (normalised) value; a held one its value alone. Numbers in 1PG15.5.
#include <string>
#include <string_view>

#include "stats/cosine.h"

namespace tidemark::stats {

// " Variance = " V " with " n, as the listing and the dialog's result field show it.
std::string cosine_variance_line(double variance, int points);
// The percentage followed by " % variance remaining".
std::string cosine_remaining_line(double percent);

// The whole listing of a successful fit.
std::string cosine_listing(std::string_view file_name, const CosineFit& fit,
                           const CosineFlags& flags);

// The listing of a failed fit: the heading, " LSFIT2 return error code = " with the
// code, and the engine's message.
std::string cosine_error_listing(std::string_view file_name, const Lsfit2Result& engine);

// " LSFIT2 return error code = " followed by the code.
std::string lsfit2_error_line(Lsfit2Code code);

}  // namespace tidemark::stats
