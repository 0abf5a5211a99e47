// Single letters of a UTF-8 text: reading one, writing one, and its place in the desk's compare order.
// For the files of this folder; the rest of the desk works with whole texts (text/turkish.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace karvel {

// A damaged byte reads as kDamagedLetter + the byte, one letter long, so no text is ever refused or lost.
inline constexpr char32_t kDamagedLetter = 0x110000;

struct Letter {
  char32_t code = 0;
  std::uint8_t size = 1;  // in bytes
};

// The letter that begins at `at`, which is inside the text.
Letter LetterAt(std::string_view text, std::size_t at);
// Writes a letter; a damaged one as the byte that it was.
void AppendLetter(std::string& text, char32_t code);
// A number that is the same for letters that compare alike and orders as the Turkish alphabet does.
std::uint32_t CompareCode(char32_t code);

}  // namespace karvel
