#include <algorithm>
#include <array>

#include "text/letters.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// The bytes 80 to 9F. Those without a letter keep their own number, so that every file comes back as it was.
constexpr std::array<char32_t, 32> kUpperControls = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                                     0x2039, 0x0152, 0x8D,   0x8E,   0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                                     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x9E,   0x0178};

constexpr auto kLetters = [] {
  std::array<char32_t, 256> table{};
  for (std::size_t i = 0; i < 256; ++i) table[i] = i >= 0x80 && i < 0xA0 ? kUpperControls[i - 0x80] : static_cast<char32_t>(i);
  table[0xD0] = U'Ğ';
  table[0xDD] = U'İ';
  table[0xDE] = U'Ş';
  table[0xF0] = U'ğ';
  table[0xFD] = U'ı';
  table[0xFE] = U'ş';
  return table;
}();

}  // namespace

std::string ToCp1254(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Letter letter = LetterAt(utf8, at);
    at += letter.size;
    if (letter.code < 0x100 && kLetters[letter.code] == letter.code) {
      bytes.push_back(static_cast<char>(static_cast<unsigned char>(letter.code)));
      continue;
    }
    const auto found = std::find(kLetters.begin() + 0x80, kLetters.end(), letter.code);
    bytes.push_back(found == kLetters.end() ? '?' : static_cast<char>(static_cast<unsigned char>(found - kLetters.begin())));
  }
  return bytes;
}

std::string FromCp1254(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) AppendLetter(utf8, kLetters[static_cast<unsigned char>(byte)]);
  return utf8;
}

}  // namespace karvel
