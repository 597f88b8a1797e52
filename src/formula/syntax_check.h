#pragma once
// The syntax check that a formula must pass before it is compiled.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::formula {

// Every syntax message begins with this header; some consist of the header alone.
inline constexpr std::string_view kSyntaxHeader = "*** Error in syntax of function string: ";

struct SyntaxMessage {
  std::string text;    // kSyntaxHeader followed by the message text (possibly none)
  std::size_t at = 0;  // 0-based index into the working copy the message points at
};

// Checks the blank-free formula `f` against `variables` and returns every message in
// the order found; an empty result means the formula may be compiled. The check walks
// the formula as operand, operator, operand, ...: an operand is an optional sign, then
// a function name followed by "(", a "(", a number or a variable name; after an operand
// come any number of ")", then an operator. It goes on after a message, so one fault
// can give several messages (see shown_message_index for the one a user sees). The
// messages:
//   "Missing operand"              a sign ends the formula
//   "Multiple operators"           an operator or sign follows an operator
//   "Missing function argument"    a function name ends the formula
//   "Missing opening parenthesis"  a function name is not followed by "("
//   "Invalid number format:  " + the number   (two blanks)
//   "Invalid element: " + the name             a name not in `variables`
//   "Mismatched parenthesis"       a ")" without its "("
//   "Empty parentheses"            "()"
//   "Missing operator"             an operand is followed by something else
//   "Missing )"                    a "(" is never closed
//   the header alone               the formula is empty or ends with an operator
std::vector<SyntaxMessage> check_syntax(std::string_view f, std::span<const std::string> variables);

// The message that describes the formula: the first one found, because later ones are
// often consequences of it ("2x" runs on past the missing operator to a missing operand
// at the end). An empty operand, as in ")(" or "()", gives "Invalid element: " with no
// name; that message gives way to the next one, which names the real fault, and is shown
// only when nothing else was found ("(x+)"). `messages` must not be empty.
std::size_t shown_message_index(const std::vector<SyntaxMessage>& messages);

}  // namespace tidemark::formula
