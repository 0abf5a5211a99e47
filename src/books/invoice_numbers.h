// The numbers of invoices: an "S", then a count with leading zeros. No two invoices in the book bear one number.
#pragma once

#include <optional>
#include <string>

#include "books/shop.h"

namespace karvel {

// A number as the clerk typed it: blanks around it don't count, a small s is an S, and digits alone get the S and are padded to six.
// Nothing for any other text: a number that can't be counted on would ruin the series.
std::optional<std::string> ReadInvoiceNumber(const std::string& typed);
// A number without its "S", as the settings keep the last one.
std::string BareInvoiceNumber(const std::string& number);
// The one behind it: as many digits, one more where they don't hold it. What is no number counts as
// six zeros.
std::string NextInvoiceNumber(const std::string& last);
// The number itself where no invoice bears it, else the next behind it that is free. Within an action it stays free until its end.
Outcome<std::string> FreeInvoiceNumber(const Shop& shop, const std::string& wanted);

}  // namespace karvel
