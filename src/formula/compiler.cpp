#include "formula/compiler.h"

#include <algorithm>
#include <new>

#include "formula/lexis.h"
#include "formula/opcodes.h"
#include "formula/syntax_check.h"

namespace tidemark::formula {

namespace {

// Writes byte code into a formula sized by an earlier counting run, or, without a
// target, only counts.
class Emitter {
 public:
  explicit Emitter(CompiledFormula* target) : target_(target) {}

  void code(int op) {
    if (target_) target_->byte_code[codes_] = static_cast<std::uint8_t>(op);
    ++codes_;
  }
  void push_constant(double value) {
    code(kPushConstant);
    if (target_) target_->immed[constants_] = value;
    ++constants_;
    push();
  }
  void push_variable(int k) {
    code(kFirstVariable + k - 1);
    variables_used_ = std::max(variables_used_, k);
    push();
  }
  // A binary operator takes two values and leaves one.
  void binary(int op) {
    code(op);
    --depth_;
  }

  std::size_t codes() const { return codes_; }
  std::size_t constants() const { return constants_; }
  std::size_t deepest() const { return deepest_; }
  int variables_used() const { return variables_used_; }

 private:
  void push() { deepest_ = std::max(deepest_, ++depth_); }

  CompiledFormula* target_;
  std::size_t codes_ = 0;
  std::size_t constants_ = 0;
  std::size_t depth_ = 0;
  std::size_t deepest_ = 0;
  int variables_used_ = 0;
};

class Compiler {
 public:
  Compiler(std::string_view f, std::span<const std::string> variables, Emitter& emit)
      : f_(f), variables_(variables), emit_(emit) {}

  // Compiles f[b, e); on failure records the operand that could not be read.
  bool compile(std::size_t b, std::size_t e) {
    if (b >= e) return fail(b, e);
    if (f_[b] == '+') return compile(b + 1, e);
    if (enclosed(b, e)) return compile(b + 1, e - 1);
    if (const int code = call_at(b, e)) return call(b, e, code);
    if (f_[b] == '-' && enclosed(b + 1, e)) return compile(b + 2, e - 1) && emit(kNegate);
    if (const int code = f_[b] == '-' ? call_at(b + 1, e) : 0) {
      return call(b + 1, e, code) && emit(kNegate);
    }
    for (std::size_t p = 0; p < kOperators.size(); ++p) {
      const std::size_t j = rightmost_operator(b, e, kOperators[p]);
      if (j == e) continue;
      if (p >= 2 && f_[b] == '-') return compile(b + 1, e) && emit(kNegate);
      if (!compile(b, j) || !compile(j + 1, e)) return false;
      emit_.binary(kAdd + static_cast<int>(p));
      return true;
    }
    return operand(b, e);
  }

  const std::string& failed_operand() const { return failed_operand_; }

 private:
  bool fail(std::size_t b, std::size_t e) {
    failed_operand_ = f_.substr(b, e - b);
    return false;
  }
  bool emit(int code) {
    emit_.code(code);
    return true;
  }

  // True when f[b, e) is "(...)" with the first "(" matched by the last ")".
  bool enclosed(std::size_t b, std::size_t e) const {
    if (e - b < 2 || f_[b] != '(' || f_[e - 1] != ')') return false;
    int depth = 0;
    for (std::size_t j = b; j < e - 1; ++j) {
      depth += f_[j] == '(' ? 1 : f_[j] == ')' ? -1 : 0;
      if (depth == 0) return false;
    }
    return depth == 1;
  }

  // The function code when f[b, e) is a function name followed by one enclosed
  // argument, else 0.
  int call_at(std::size_t b, std::size_t e) const {
    const int code = function_at(f_.substr(0, e), b);
    return code != 0 && enclosed(b + function_name_length(code), e) ? code : 0;
  }

  // Compiles the call of function `code` that spans f[b, e).
  bool call(std::size_t b, std::size_t e, int code) {
    return compile(b + function_name_length(code) + 1, e - 1) && emit(code);
  }

  // The rightmost binary `op` of f[b, e) outside parentheses, or e when there is none.
  std::size_t rightmost_operator(std::size_t b, std::size_t e, char op) const {
    int depth = 0;
    for (std::size_t j = e; j-- > b;) {
      if (f_[j] == ')') {
        ++depth;
      } else if (f_[j] == '(') {
        --depth;
      } else if (depth == 0 && f_[j] == op &&
                 ((op != '+' && op != '-') || is_binary_operator(f_, j))) {
        return j;
      }
    }
    return e;
  }

  // A number or a variable, optionally preceded by "-".
  bool operand(std::size_t b, std::size_t e) {
    const bool minus = f_[b] == '-';
    const std::size_t s = minus ? b + 1 : b;
    if (s >= e) return fail(b, e);
    if (starts_number(f_[s])) {
      const NumberScanResult number = scan_number(f_.substr(0, e), s);
      if (!number.ok() || number.end != e) return fail(b, e);
      emit_.push_constant(number.value);
    } else {
      const int k = variable_number(f_.substr(s, e - s), variables_);
      if (k == 0) return fail(b, e);
      emit_.push_variable(k);
    }
    return !minus || emit(kNegate);
  }

  std::string_view f_;
  std::span<const std::string> variables_;
  Emitter& emit_;
  std::string failed_operand_;
};

}  // namespace

std::string compile_formula(std::string_view f, std::span<const std::string> variables,
                            CompiledFormula& out) {
  out = CompiledFormula();
  Emitter counter(nullptr);
  Compiler counting(f, variables, counter);
  if (!counting.compile(0, f.size())) {
    return std::string(kSyntaxHeader) + "Invalid element: " + counting.failed_operand();
  }
  CompiledFormula formula;
  try {
    formula.byte_code.resize(counter.codes());
    formula.immed.resize(counter.constants());
    formula.stack.resize(counter.deepest());
  } catch (const std::bad_alloc&) {
    return std::string(kAllocationFailed);
  }
  formula.variables_used = counter.variables_used();
  Emitter writer(&formula);
  Compiler(f, variables, writer).compile(0, f.size());
  out = std::move(formula);
  return {};
}

}  // namespace tidemark::formula
