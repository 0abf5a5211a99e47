#include "text/utf8.h"

#include "text/letters.h"

namespace karvel {

bool IsUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const Letter letter = LetterAt(bytes, at);
    if (letter.code >= kDamagedLetter) return false;
    at += letter.size;
  }
  return true;
}

}  // namespace karvel
