#include "touch/typed_number.h"

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

bool MayBecomeNumber(const std::string& text) {
  constexpr std::size_t kWholeDigits = 9;
  const std::size_t digits = ReplaceAll(text.substr(0, text.find(',')), ".", "").size();
  if (Trim(text).empty()) return text.empty();
  return digits <= kWholeDigits && (IsNumeric(text) || IsNumeric(text + "0"));
}

std::string FinishedNumber(const std::string& text) {
  return text.ends_with(',') ? text.substr(0, text.size() - 1) : text;
}

}  // namespace karvel
