// The numbers of invoices: an "S", then a count with leading zeros. No two invoices in the book bear one number.
#pragma once

#include <string>

#include "books/shop.h"

namespace karvel {

// A number without its "S", as the settings keep the last one.
std::string BareInvoiceNumber(const std::string& number);
// The one behind it: as many digits, one more where they don't hold it. What is no number counts as 0.
std::string NextInvoiceNumber(const std::string& last);
// The number itself where no invoice bears it, else the next behind it that is free. Within an action it stays free until its end.
Outcome<std::string> FreeInvoiceNumber(const Shop& shop, const std::string& wanted);

}  // namespace karvel
