#include "formula/compiled_formula.h"

#include <cmath>

#include "formula/eval_error.h"
#include "formula/opcodes.h"

namespace tidemark::formula {

// The top of the stack lives in `top`; the values below it in stack[1..depth-1]. A
// push first moves `top` down to *sp (on the first push a dummy lands in stack[0]),
// so depth d writes stack[0..d-1] only and the deepest point fits the stack exactly.
// An operand that is followed by + - * / is combined with `top` at once instead of
// being pushed and popped again: the same arithmetic in the same order, with half the
// dispatches for the usual "operand operator" pairs.
double CompiledFormula::evaluate(std::span<const double> values, int& error) {
  double* sp = stack.data();
  double top = 0.0;
  const double* constant = immed.data();
  const auto fail = [&error](EvalError type) {
    error = type;
    return 0.0;
  };
  const std::uint8_t* const end = byte_code.data() + byte_code.size();
  for (const std::uint8_t* pc = byte_code.data(); pc != end; ++pc) {
    double operand;
    if (*pc >= kFirstVariable) {
      operand = values[*pc - kFirstVariable];
    } else if (*pc == kPushConstant) {
      operand = *constant++;
    } else {
      switch (*pc) {
        case kNegate:
          top = -top;
          break;
        case kAdd:
          top = *--sp + top;
          break;
        case kSubtract:
          top = *--sp - top;
          break;
        case kMultiply:
          top = *--sp * top;
          break;
        case kDivide:
          if (top == 0.0) return fail(kDivisionByZero);
          top = *--sp / top;
          break;
        case kPower:
          top = std::pow(*--sp, top);
          break;
        case kAbs:
          top = std::fabs(top);
          break;
        case kExp:
          top = std::exp(top);
          break;
        case kLog10:
          if (top <= 0.0) return fail(kLogNegative);
          top = std::log10(top);
          break;
        case kLog:
          if (top <= 0.0) return fail(kLogNegative);
          top = std::log(top);
          break;
        case kSqrt:
          if (top < 0.0) return fail(kLogNegative);
          top = std::sqrt(top);
          break;
        case kSinh:
          top = std::sinh(top);
          break;
        case kCosh:
          top = std::cosh(top);
          break;
        case kTanh:
          top = std::tanh(top);
          break;
        case kSin:
          top = std::sin(top);
          break;
        case kCos:
          top = std::cos(top);
          break;
        case kTan:
          top = std::tan(top);
          break;
        case kAsin:
          if (top < -1.0 || top > 1.0) return fail(kAsinAcosIllegal);
          top = std::asin(top);
          break;
        case kAcos:
          if (top < -1.0 || top > 1.0) return fail(kAsinAcosIllegal);
          top = std::acos(top);
          break;
        case kAtan:
          top = std::atan(top);
          break;
      }
      continue;
    }
    switch (pc + 1 != end ? pc[1] : 0) {
      case kAdd:
        ++pc;
        top += operand;
        break;
      case kSubtract:
        ++pc;
        top -= operand;
        break;
      case kMultiply:
        ++pc;
        top *= operand;
        break;
      case kDivide:
        if (operand == 0.0) return fail(kDivisionByZero);
        ++pc;
        top /= operand;
        break;
      default:
        *sp++ = top;
        top = operand;
        break;
    }
  }
  error = kNoError;
  return top;
}

}  // namespace tidemark::formula
