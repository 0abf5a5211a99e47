// What may stand in an amount while it is typed, by a finger or a key.
#pragma once

#include <string>

namespace karvel {

// A number, or the beginning of one: "12," is on its way to "12,5". Nine digits before the comma at most: a barcode that lands in an amount
// is no amount.
[[nodiscard]] bool MayBecomeNumber(const std::string& text);
// As it stands when nothing more comes: "12," is 12.
[[nodiscard]] std::string FinishedNumber(const std::string& text);

}  // namespace karvel
