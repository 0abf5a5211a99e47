#include "exchange/sheet.h"

namespace karvel {

std::string ColumnLetters(int column) {
  constexpr int kLetters = 26;
  std::string letters;
  for (int rest = column + 1; rest > 0; rest = (rest - 1) / kLetters)
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
  return letters;
}

}  // namespace karvel
