#include "data/summary_row.h"

namespace tidemark::data {

int column_number(std::string_view letters) {
  if (letters.empty() || letters.size() > 3) return 0;
  int number = 0;
  for (char c : letters) {
    if (c < 'A' || c > 'Z') return 0;
    number = number * 26 + (c - 'A' + 1);
  }
  return number;
}

std::string column_letters(int number) {
  std::string letters;
  for (; number > 0; number = (number - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (number - 1) % 26));
  }
  return letters;
}

}  // namespace tidemark::data
