#include "text/utf8.h"

#include "text/letters.h"

namespace karvel {

bool IsUtf8(std::string_view bytes) {
  return SignsOfUtf8(bytes).damaged == 0;
}

Utf8Signs SignsOfUtf8(std::string_view bytes) {
  Utf8Signs signs;
  for (std::size_t at = 0; at < bytes.size();) {
    const Letter letter = LetterAt(bytes, at);
    if (letter.code >= kDamagedLetter) {
      ++signs.damaged;
    } else if (letter.code >= U'À' && letter.code <= U'ſ') {
      ++signs.letters;
    }
    at += letter.size;
  }
  return signs;
}

}  // namespace karvel
