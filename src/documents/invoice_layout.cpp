#include "documents/invoice_layout.h"

#include <charconv>
#include <string_view>
#include <vector>

namespace karvel {
namespace {

constexpr double kTwipsPerPixel = 15;
constexpr std::size_t kHead = 4;  // numbers before those of the boxes
constexpr std::string_view kBetween = ", \t\r\n\"";

// With a point before the decimals, as files have it.
std::optional<std::vector<double>> Numbers(std::string_view text) {
  std::vector<double> numbers;
  for (std::size_t at = text.find_first_not_of(kBetween); at != std::string_view::npos; at = text.find_first_not_of(kBetween, at)) {
    const std::size_t end = std::min(text.find_first_of(kBetween, at), text.size());
    double number = 0;
    const auto read = std::from_chars(text.data() + at, text.data() + end, number);
    const bool whole = read.ec == std::errc() && read.ptr == text.data() + end;
    if (!whole && numbers.size() >= kHead) return std::nullopt;
    numbers.push_back(number);
    at = end;
  }
  return numbers;
}

}  // namespace

std::optional<InvoiceLayout> ReadInvoiceLayout(const std::string& bytes) {
  const auto numbers = Numbers(bytes);
  InvoiceLayout layout;
  if (!numbers || numbers->size() < kHead + 2 * layout.boxes.size()) return std::nullopt;
  for (std::size_t i = 0; i < layout.boxes.size(); ++i)
    layout.boxes[i] = {(*numbers)[kHead + 2 * i] * kTwipsPerPixel, (*numbers)[kHead + 2 * i + 1] * kTwipsPerPixel};
  return layout;
}

}  // namespace karvel
