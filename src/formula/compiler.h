#pragma once
// Compilation of a checked formula into byte code.
#include <span>
#include <string>
#include <string_view>

#include "formula/compiled_formula.h"

namespace tidemark::formula {

// Message when the byte code, constants or stack cannot be allocated (spelling kept).
inline constexpr std::string_view kAllocationFailed =
    "*** Parser error: Memmory allocation for byte code failed";

// Compiles the blank-free formula `f`, which has passed check_syntax, into `out`, and
// returns an empty string; on failure returns the message and leaves `out` empty.
// Two passes over the same recursive descent: the first only counts byte codes,
// constants and the deepest stack, then the arrays are allocated at those sizes and
// the second pass emits. The recursive compile of a part of `f`, first rule that
// applies:
//   1. "+a"            -> a                 (a leading plus is ignored)
//   2. "(a)"           -> a                 (one matching pair encloses everything)
//   3. "fn(a)"         -> a, fn
//   4. "-(a)"          -> a, negate
//   5. "-fn(a)"        -> a, fn, negate
//   6. split at the rightmost binary operator outside parentheses, trying "+", then
//      "-", "*", "/", "^": "a op b" -> a, b, op. So every operator groups from the
//      left (2^3^2 = 64), and "+" binds loosest, then "-", "*", "/", "^":
//      a+b-c = a+(b-c), a*b/c = a*(b/c). For "*", "/" and "^" a leading minus
//      applies to the whole: "-a*b" -> a*b, negate; "-x^2" = -(x^2).
//   7. "[-]operand"    -> push the number or variable [, negate]
// A formula that passed the check can fail here only through a variable name holding
// "(", reported as an invalid element.
std::string compile_formula(std::string_view f, std::span<const std::string> variables,
                            CompiledFormula& out);

}  // namespace tidemark::formula
