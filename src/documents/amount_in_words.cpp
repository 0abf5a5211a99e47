#include "documents/amount_in_words.h"

#include <array>
#include <string_view>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kPlaces = 9;
constexpr std::array<std::string_view, 10> kOnes{"", "bir", "iki", "üç", "dört", "beş", "altı", "yedi", "sekiz", "dokuz"};
constexpr std::array<std::string_view, 10> kTens{"", "on", "yirmi", "otuz", "kırk", "elli", "altmış", "yetmiş", "seksen", "doksan"};

std::size_t DigitAt(std::string_view text, std::size_t place) {
  return place < text.size() && text[place] >= '0' && text[place] <= '9' ? static_cast<std::size_t>(text[place] - '0') : 0;
}

// Three places of a number: a hundred alone isn't counted, "yüz", not "biryüz".
struct Group {
  std::size_t hundreds = 0, tens = 0, ones = 0;

  Group(std::string_view places, std::size_t first)
      : hundreds(DigitAt(places, first)), tens(DigitAt(places, first + 1)), ones(DigitAt(places, first + 2)) {}
  [[nodiscard]] std::size_t Value() const { return 100 * hundreds + 10 * tens + ones; }
  [[nodiscard]] std::string Words() const {
    std::string words;
    if (hundreds > 0) words.append(hundreds > 1 ? kOnes[hundreds] : "").append("yüz");
    return words.append(kTens[tens]).append(kOnes[ones]);
  }
};

std::string Capitalised(const std::string& words) {
  return TurkishUpper(LeftLetters(words, 1)) + MidLetters(words, 1);
}

// A thousand alone isn't counted either; a million is: "bin", but "birmilyon".
std::string WordsOfLiras(std::string_view places) {
  const Group millions(places, 0), thousands(places, 3), ones(places, 6);
  std::string words;
  if (millions.Value() > 0) words.append(millions.Words()).append("milyon");
  if (thousands.Value() > 0) words.append(thousands.Value() > 1 ? thousands.Words() : "").append("bin");
  return words.append(ones.Words());
}

// Of the number at its head, as a field of a form would read it.
bool IsAboveZero(std::string_view kuruş) {
  const std::string_view digits = kuruş.substr(0, kuruş.find_first_not_of("0123456789"));
  return digits.find_first_not_of('0') != std::string_view::npos;
}

std::string WordsOfKuruş(std::string_view kuruş) {
  std::string words;
  words.append(kTens[DigitAt(kuruş, 0)]).append(kOnes[DigitAt(kuruş, 1)]);
  return Capitalised(words) + " Kr.";
}

}  // namespace

std::expected<std::string, Status> YazıylaTutar(const std::string& amount) {
  const std::string plain = ReplaceAll(amount, ".", "");
  const std::size_t comma = plain.find(',');
  const std::string liras = comma == std::string::npos ? plain : Trim(plain.substr(0, comma));
  const std::string kuruş = comma == std::string::npos ? std::string() : plain.substr(comma + 1);
  if (liras.size() > kPlaces) return std::unexpected(Status{ErrorKind::BadText, "too many places to spell: " + amount});

  std::string sentence = WordsOfLiras(std::string(kPlaces - liras.size(), ' ') + liras);
  if (!sentence.empty()) sentence = Capitalised(sentence) + " TL. ";
  if (IsAboveZero(kuruş)) return sentence + WordsOfKuruş(kuruş);
  return sentence.empty() ? "Sıfır TL. " : sentence;
}

}  // namespace karvel
