#include "books/invoice_tax.h"

#include <algorithm>

#include "books/card_balance.h"
#include "text/format.h"

namespace karvel {

double TaxOf(double amount, double rate, TaxMode mode) {
  const double factor = (rate + 100) / 100;
  const double tax = mode == TaxMode::Included ? amount - amount / factor : amount * factor - amount;
  return NumberOrZero(Format(WithoutDust(tax), "#,##0.00"));
}

bool TaxTable::Add(double rate, double tax) {
  const auto entry = std::ranges::find_if(entries_, [&](const Entry& one) { return one.rate == rate || one.rate == 0; });
  if (entry == entries_.end()) return rate == 0;
  entry->rate = rate == 0 ? entry->rate : rate;
  entry->tax = WithoutDust(entry->tax + tax);
  return true;
}

double TaxTable::Sum() const {
  double sum = 0;
  for (const Entry& entry : entries_) sum += entry.tax;
  return WithoutDust(sum);
}

}  // namespace karvel
