#pragma once
// One compiled formula (a slot of the formula table) and the stack machine that
// evaluates it.
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tidemark::formula {

struct CompiledFormula {
  std::vector<std::uint8_t> byte_code;  // operation codes (formula/opcodes.h), postfix order
  std::vector<double> immed;            // the constants that kPushConstant pushes, in order
  std::vector<double> stack;            // evaluation stack, sized to the deepest point
  int variables_used = 0;               // highest variable number the byte code reads

  // True once a formula has been compiled into this slot.
  bool compiled() const { return !byte_code.empty(); }

  // Runs the byte code with values[k - 1] as variable k and returns the value left on
  // top of the stack, with `error` = kNoError. Checks, each of which ends the
  // evaluation at once with the result 0 and `error` set:
  //   divide by exactly 0                           kDivisionByZero (1)
  //   log10 or log of x <= 0, sqrt of x < 0         kLogNegative (3)
  //   asin or acos of x < -1 or x > 1               kAsinAcosIllegal (4)
  // Power is std::pow unchecked, so the result may be infinite or NaN. Needs
  // compiled() and values.size() >= variables_used; allocates nothing.
  double evaluate(std::span<const double> values, int& error);
};

}  // namespace tidemark::formula
