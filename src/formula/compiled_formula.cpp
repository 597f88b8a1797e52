#include "formula/compiled_formula.h"

#include <cmath>

#include "formula/eval_error.h"
#include "formula/opcodes.h"

namespace tidemark::formula {

double CompiledFormula::evaluate(std::span<const double> values, int& error) {
  double* sp = stack.data();  // one past the top of the stack
  const double* constant = immed.data();
  const auto fail = [&error](EvalError type) {
    error = type;
    return 0.0;
  };
  for (const std::uint8_t code : byte_code) {
    switch (code) {
      case kPushConstant:
        *sp++ = *constant++;
        break;
      case kNegate:
        sp[-1] = -sp[-1];
        break;
      case kAdd:
        --sp;
        sp[-1] += sp[0];
        break;
      case kSubtract:
        --sp;
        sp[-1] -= sp[0];
        break;
      case kMultiply:
        --sp;
        sp[-1] *= sp[0];
        break;
      case kDivide:
        if (sp[-1] == 0.0) return fail(kDivisionByZero);
        --sp;
        sp[-1] /= sp[0];
        break;
      case kPower:
        --sp;
        sp[-1] = std::pow(sp[-1], sp[0]);
        break;
      case kAbs:
        sp[-1] = std::fabs(sp[-1]);
        break;
      case kExp:
        sp[-1] = std::exp(sp[-1]);
        break;
      case kLog10:
        if (sp[-1] <= 0.0) return fail(kLogNegative);
        sp[-1] = std::log10(sp[-1]);
        break;
      case kLog:
        if (sp[-1] <= 0.0) return fail(kLogNegative);
        sp[-1] = std::log(sp[-1]);
        break;
      case kSqrt:
        if (sp[-1] < 0.0) return fail(kLogNegative);
        sp[-1] = std::sqrt(sp[-1]);
        break;
      case kSinh:
        sp[-1] = std::sinh(sp[-1]);
        break;
      case kCosh:
        sp[-1] = std::cosh(sp[-1]);
        break;
      case kTanh:
        sp[-1] = std::tanh(sp[-1]);
        break;
      case kSin:
        sp[-1] = std::sin(sp[-1]);
        break;
      case kCos:
        sp[-1] = std::cos(sp[-1]);
        break;
      case kTan:
        sp[-1] = std::tan(sp[-1]);
        break;
      case kAsin:
        if (sp[-1] < -1.0 || sp[-1] > 1.0) return fail(kAsinAcosIllegal);
        sp[-1] = std::asin(sp[-1]);
        break;
      case kAcos:
        if (sp[-1] < -1.0 || sp[-1] > 1.0) return fail(kAsinAcosIllegal);
        sp[-1] = std::acos(sp[-1]);
        break;
      case kAtan:
        sp[-1] = std::atan(sp[-1]);
        break;
      default:
        *sp++ = values[code - kFirstVariable];
        break;
    }
  }
  error = kNoError;
  return sp[-1];
}

}  // namespace tidemark::formula
