#include "formula/syntax_check.h"

#include "formula/lexis.h"
#include "formula/opcodes.h"

namespace tidemark::formula {

namespace {

class Checker {
 public:
  Checker(std::string_view f, std::span<const std::string> variables)
      : f_(f), variables_(variables) {}

  std::vector<SyntaxMessage> run() {
    while (step()) {
    }
    if (depth_ > 0) report(j_, "Missing )");
    return std::move(messages_);
  }

 private:
  void report(std::size_t at, std::string_view text) {
    messages_.push_back({std::string(kSyntaxHeader).append(text), at});
  }
  bool at_end() const { return j_ >= f_.size(); }

  // Checks one operand and the operator after it; false once the formula has ended.
  bool step() {
    if (at_end()) {
      report(j_, "");
      return false;
    }
    if (f_[j_] == '+' || f_[j_] == '-') {
      ++j_;
      if (at_end()) {
        report(j_, "Missing operand");
        return false;
      }
      if (is_operator(f_[j_])) report(j_, "Multiple operators");
    }
    if (const int code = function_at(f_, j_)) {
      j_ += function_name_length(code);
      if (at_end()) {
        report(j_, "Missing function argument");
        return false;
      }
      if (f_[j_] != '(') report(j_, "Missing opening parenthesis");
    }
    if (f_[j_] == '(') {
      ++depth_;
      ++j_;
      return true;
    }
    check_operand();
    if (at_end() || !close_parentheses()) return false;
    check_operator();
    return true;
  }

  // A number or a variable name at j_; moves past it.
  void check_operand() {
    if (starts_number(f_[j_])) {
      const NumberScanResult number = scan_number(f_, j_);
      if (!number.ok())
        report(j_, "Invalid number format:  " + std::string(f_.substr(j_, number.end - j_)));
      j_ = number.end;
      return;
    }
    const std::size_t end = name_end(f_, j_);
    const std::string_view name = f_.substr(j_, end - j_);
    if (variable_number(name, variables_) == 0) report(j_, "Invalid element: " + std::string(name));
    j_ = end;
  }

  // Moves past a run of ")"; false when the formula ends with it.
  bool close_parentheses() {
    while (f_[j_] == ')') {
      if (--depth_ < 0) report(j_, "Mismatched parenthesis");
      if (j_ > 0 && f_[j_ - 1] == '(') report(j_ - 1, "Empty parentheses");
      ++j_;
      if (at_end()) return false;
    }
    return true;
  }

  // The operator that must follow an operand; moves past it.
  void check_operator() {
    if (!is_operator(f_[j_])) {
      report(j_, "Missing operator");
    } else if (j_ + 1 >= f_.size()) {
      report(j_, "");
    } else if (is_operator(f_[j_ + 1])) {
      report(j_ + 1, "Multiple operators");
    }
    ++j_;
  }

  std::string_view f_;
  std::span<const std::string> variables_;
  std::vector<SyntaxMessage> messages_;
  std::size_t j_ = 0;
  int depth_ = 0;
};

}  // namespace

std::vector<SyntaxMessage> check_syntax(std::string_view f,
                                        std::span<const std::string> variables) {
  return Checker(f, variables).run();
}

std::size_t shown_message_index(const std::vector<SyntaxMessage>& messages) {
  const std::string empty_operand = std::string(kSyntaxHeader) + "Invalid element: ";
  for (std::size_t i = 0; i < messages.size(); ++i) {
    if (messages[i].text != empty_operand) return i;
  }
  return 0;
}

}  // namespace tidemark::formula
