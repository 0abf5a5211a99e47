#include "touch/key_case.h"

#include "text/turkish.h"

namespace karvel {

std::string InCase(const std::string& letter, bool capitals) {
  return capitals ? TurkishUpper(letter) : TurkishLower(letter);
}

}  // namespace karvel
