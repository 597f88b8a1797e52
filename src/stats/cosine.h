#pragma once
// The cosinor: a single cosine with a linear trend,
//
//   Y(t) = Amplitude * cos((t - Phase) * 6.283185307 / Period) + Mean + Slope * t,
//
// fitted by LSFIT2, with the normalisation of amplitude and phase and the subtraction
// of the fitted curve. The constant 2 pi is used with exactly the ten digits
// 6.283185307, so that fitted phases agree with results kept by earlier versions.
//
//   stats::CosineValues start = {24.0, 1.0, 0.0, 5.0, 0.0};
//   stats::CosineFit fit = stats::fit_cosine(t, y, start, stats::kDefaultCosineFlags, v0);
#include <array>
#include <span>
#include <string_view>

#include "stats/lsfit2.h"

namespace tidemark::stats {

inline constexpr double kCosineTwoPi = 6.283185307;

// The parameters in the engine's order.
enum CosineParameter : int { kPeriod = 0, kAmplitude, kPhase, kMean, kSlope, kCosineParameters };

// The names passed to the engine, blank-padded to 10 characters.
inline constexpr std::array<std::string_view, kCosineParameters> kCosineNames = {
    "Period    ", "Amplitude ", "Phase     ", "Mean      ", "Slope     "};

using CosineValues = std::array<double, kCosineParameters>;
using CosineFlags = std::array<bool, kCosineParameters>;

// Period and Slope held; Amplitude, Phase and Mean fitted.
inline constexpr CosineFlags kDefaultCosineFlags = {false, true, true, true, false};

// The model at time t from the five values p; when Period <= 0 it is 0 and `failed`
// is raised.
double cosine_model(std::span<const double> p, double t, bool& failed);

// The model at t, as cosine_model, with its derivatives in the five parameters from its
// closed form: with theta = (t - Phase) * 6.283185307 / Period,
//   dY/dPeriod    = Amplitude * sin(theta) * theta / Period
//   dY/dAmplitude = cos(theta)
//   dY/dPhase     = Amplitude * sin(theta) * 6.283185307 / Period
//   dY/dMean      = 1,  dY/dSlope = t.
// When Period <= 0 the model and its derivatives are 0 and `failed` is raised.
double cosine_gradient(std::span<const double> p, double t, std::span<double> gradient,
                       bool& failed);

// The model of `values` at t, 0 when Period <= 0.
double cosine_value(const CosineValues& values, double t);

// Normalises a fitted cosine, in this order: a negative Amplitude is made positive and
// Phase moved by half a Period; then Phase <- fmod(Phase, Period) and
// Phase <- fmod(Phase + Period, Period) (remainders with the sign of the dividend), so
// the Phase lies in [0, Period). A Period <= 0 leaves the Phase as it is.
void normalise_cosine(CosineValues& values);

// 100 * V / V0, the percentage of the reference variance V0 that a fit leaves; 100 when
// V0 is 0 (a constant series, which no fit can explain).
double percent_remaining(double variance, double reference_variance);

// Replaces every concentration y(i) by y(i) - Y(t(i)), the whole model (cosine, Mean
// and Slope) subtracted; missing concentrations stay missing. With Period <= 0 the
// model counts as 0 and nothing changes. Arithmetic in double, stored as float.
void subtract_cosine(const CosineValues& values, std::span<const float> t, std::span<float> y);

struct CosineFit {
  Lsfit2Result engine;    // code, variance, intervals (before normalisation)
  CosineValues values{};  // normalised when the engine succeeded, else the start
  double percent = 0;     // 100 * V / V0, uncapped; 0 when the engine failed
};

// Fits the cosinor to the points (t, y) from `start`, moving only the flagged
// parameters; normalises the result and gives the percentage of `reference_variance`
// that remains. A start without a cosine (Amplitude 0, as on a constant series) whose
// Phase is flagged first fits with the Phase held, since the Phase then moves nothing;
// a constant series so ends with Amplitude 0 and 100 % of the variance remaining.
CosineFit fit_cosine(std::span<const double> t, std::span<const double> y,
                     const CosineValues& start, const CosineFlags& flags,
                     double reference_variance);

}  // namespace tidemark::stats
