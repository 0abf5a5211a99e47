#include "books/invoice_numbers.h"

#include "books/book_cursor.h"
#include "books/sources.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kUsualLength = 6;  // of a series that begins

bool IsCount(const std::string& digits) {
  return !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

std::optional<std::string> ReadInvoiceNumber(const std::string& typed) {
  std::string digits = Trim(typed);
  const bool marked = digits.starts_with('S') || digits.starts_with('s');
  if (marked) digits.erase(0, 1);
  if (!IsCount(digits)) return std::nullopt;
  if (!marked && digits.size() < kUsualLength) digits.insert(0, kUsualLength - digits.size(), '0');
  return "S" + digits;
}

std::string BareInvoiceNumber(const std::string& number) {
  return ReplaceAll(number, "S", "");
}

std::string NextInvoiceNumber(const std::string& last) {
  std::string digits = Trim(BareInvoiceNumber(last));
  if (!IsCount(digits)) digits.assign(kUsualLength, '0');
  // Digit by digit, for a number of a whole year's series is longer than a counter.
  const std::size_t raised = digits.find_last_not_of('9');
  if (raised == std::string::npos) return "S1" + std::string(digits.size(), '0');
  ++digits[raised];
  for (std::size_t i = raised + 1; i < digits.size(); ++i) digits[i] = '0';
  return "S" + digits;
}

Outcome<std::string> FreeInvoiceNumber(const Shop& shop, const std::string& wanted) {
  BookCursor invoices(shop.stores, "invoice numbers", "Fatura.Mdb", "Faturalar");
  std::string number = wanted;
  for (;;) {
    const Status found = invoices.FindFirst("FaturaNo=" + sources::Quoted(number));
    if (found.Kind() == ErrorKind::NoRecord) return number;
    if (!found.Ok()) return std::unexpected(found);
    number = NextInvoiceNumber(number);
  }
}

}  // namespace karvel
