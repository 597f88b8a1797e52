#pragma once
// Operation codes of the formula byte code, the function-name table and the operator
// string. The numbering is fixed: compiled byte code stores these values.
#include <array>
#include <cstdint>
#include <string_view>

namespace tidemark::formula {

enum OpCode : std::uint8_t {
  kPushConstant = 1,  // push the next constant of the constant table
  kNegate = 2,        // top = -top
  kAdd = 3,           // the five binary operators, in the order of kOperators
  kSubtract = 4,
  kMultiply = 5,
  kDivide = 6,
  kPower = 7,
  kAbs = 8,  // the functions, in the order of kFunctionNames
  kExp = 9,
  kLog10 = 10,
  kLog = 11,
  kSqrt = 12,
  kSinh = 13,
  kCosh = 14,
  kTanh = 15,
  kSin = 16,
  kCos = 17,
  kTan = 18,
  kAsin = 19,
  kAcos = 20,
  kAtan = 21,
  kFirstVariable = 22,  // code 22 + k - 1 pushes the value of variable k (k = 1, 2, ...)
};

// Highest variable number a one-byte code can address: 22 + 234 - 1 = 255.
inline constexpr int kMaxVariables = 255 - kFirstVariable + 1;

// Function names in code order kAbs..kAtan. The first name that matches wins, so
// "log10" stands before "log" and "sinh" before "sin".
inline constexpr std::array<std::string_view, 14> kFunctionNames = {
    "abs",  "exp", "log10", "log", "sqrt", "sinh", "cosh",
    "tanh", "sin", "cos",   "tan", "asin", "acos", "atan"};

// The binary operators; the code of kOperators[p] is kAdd + p.
inline constexpr std::string_view kOperators = "+-*/^";

inline constexpr bool is_operator(char c) {
  return kOperators.find(c) != std::string_view::npos;
}

}  // namespace tidemark::formula
