// The number that is built up on the numeric pad: what its box holds after each key. No key leaves a text that is no number, nor one that
// no field of the desk would take.
#pragma once

#include <string>
#include <string_view>

namespace karvel::number_pad {

// Stands in the box while the pad asks whether a quantity or a price is meant; the first digit takes its place.
inline constexpr std::string_view kRoleAsked = "MiktarFiyat";
// The caption of a pad that orders goods. It asks for no role.
inline constexpr std::string_view kOrdering = "Sipariş";
// Written into the box, it closes the pad.
inline constexpr std::string_view kExit = "Exit";

// After a digit, on a pad of this caption.
[[nodiscard]] std::string WithDigit(const std::string& text, std::string_view digit, std::string_view caption);
// After one of the keys that add several zeros at once.
[[nodiscard]] std::string WithZeros(const std::string& text, std::string_view zeros);
// After the comma: an empty box begins with "0,", and a number has one comma at most.
[[nodiscard]] std::string WithComma(const std::string& text);
// Without its last digit or comma.
[[nodiscard]] std::string WithoutLast(const std::string& text);
// What a keyboard's letter becomes in the box, which holds `text` with its selection from `start`, in letters: itself, a comma in the place
// of a point, or 0 for one that the pad doesn't take. Backspace passes.
[[nodiscard]] char32_t Typed(const std::string& text, int start, int length, char32_t letter);
// Whether the box holds what can be given to the field. A lone zero is no answer: the field is left as it was.
[[nodiscard]] bool HoldsAnswer(const std::string& text);

}  // namespace karvel::number_pad
