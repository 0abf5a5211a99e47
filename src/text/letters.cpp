#include "text/letters.h"

namespace karvel {
namespace {

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

}  // namespace

Letter LetterAt(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t left = text.size() - at;
  const Letter damaged{kDamagedLetter + lead, 1};
  const std::uint8_t size = lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
  if (size == 0 || left < size) return damaged;
  char32_t code = lead & (0x7F >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if (!IsContinuation(byte(i))) return damaged;
    code = (code << 6) | (byte(i) & 0x3F);
  }
  const bool overlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
  if (overlong || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return damaged;
  return {code, size};
}

void AppendLetter(std::string& text, char32_t code) {
  const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (code >= kDamagedLetter) {
    put(code - kDamagedLetter);
  } else if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

std::uint32_t CompareCode(char32_t code) {
  // Four numbers for each letter, three of them in use: the plain letter, the one with a hat, the one with the Turkish mark.
  const auto plain = [](char32_t letter) { return static_cast<std::uint32_t>(letter) * 4; };
  if (code < 0x80) return plain(code >= U'A' && code <= U'Z' ? code + 0x20 : code);
  constexpr std::uint32_t kHat = 1;
  constexpr std::uint32_t kMark = 2;
  switch (code) {
    case U'ç':
    case U'Ç':
      return plain(U'c') + kMark;
    case U'ğ':
    case U'Ğ':
      return plain(U'g') + kMark;
    case U'ı':
      return plain(U'h') + kMark;
    case U'İ':
      return plain(U'i') + kMark;
    case U'ö':
    case U'Ö':
      return plain(U'o') + kMark;
    case U'ş':
    case U'Ş':
      return plain(U's') + kMark;
    case U'ü':
    case U'Ü':
      return plain(U'u') + kMark;
    case U'â':
    case U'Â':
      return plain(U'a') + kHat;
    case U'î':
    case U'Î':
      return plain(U'i') + kHat;
    case U'û':
    case U'Û':
      return plain(U'u') + kHat;
    default:
      return plain(code);
  }
}

}  // namespace karvel
