#pragma once
// Missing-value and unset-setting conventions shared by every data set slot and option.

namespace tidemark::core {

// A missing real is stored as -1.E35; anything below -9.9E34 counts as missing.
inline constexpr double kMissing = -1.E35;
inline constexpr float kMissingF = -1.E35f;
inline constexpr double kMissingBelow = -9.9E34;

// A missing integer is any value not above -32760; this is the value stored for one.
inline constexpr int kMissingInt = -32767;
inline constexpr int kMissingIntAtMost = -32760;

// A real option that has not been given holds -1.0E30; anything below -1.0E29 is unset.
inline constexpr double kUnset = -1.0E30;
inline constexpr double kUnsetBelow = -1.0E29;

inline constexpr bool is_missing(double v) { return v < kMissingBelow; }
inline constexpr bool is_missing_int(int v) { return v <= kMissingIntAtMost; }
inline constexpr bool is_unset(double v) { return v < kUnsetBelow; }

}  // namespace tidemark::core
