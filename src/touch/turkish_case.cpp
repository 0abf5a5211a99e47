#include "touch/turkish_case.h"

#include <array>
#include <string>
#include <utility>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::array<std::pair<char32_t, char32_t>, 7> kTurkish{{
    {U'ğ', U'Ğ'},
    {U'ü', U'Ü'},
    {U'ş', U'Ş'},
    {U'i', U'İ'},
    {U'ı', U'I'},
    {U'ö', U'Ö'},
    {U'ç', U'Ç'},
}};

}  // namespace

char32_t TürkçeBüyük(std::string_view text, int selectionStart, char32_t letter) {
  const std::string before = LeftLetters(text, static_cast<std::size_t>(selectionStart));
  if (!before.empty() && before.back() != '.' && before.back() != '/') return letter;
  for (const auto& [small, capital] : kTurkish)
    if (letter == small) return capital;
  return letter >= U'a' && letter <= U'z' ? letter - 32 : letter;
}

}  // namespace karvel
