// An invoice on the shop's pre-printed paper: each item at the place that the layout names for it, in twips.
#pragma once

#include <array>
#include <expected>
#include <string>

#include "books/invoice.h"
#include "documents/drawing.h"
#include "documents/invoice_layout.h"

namespace karvel {

// The customer as the clerk left him in the panel.
struct InvoiceAddress {
  std::string title, address, address2, taxOffice, taxNumber;
};

struct InvoicePaper {
  Invoice invoice;
  InvoiceAddress customer;
  // The check marks of MnPop(0) to (9): which items are wanted.
  std::array<bool, 10> marks{};
  std::string quantityFormat;
  double mostLines = 0;  // that the body of the paper holds
  DateTime now;          // of the print
};

// BadText where the total is too great to be spelled, and is to be.
std::expected<Drawing, Status> DrawInvoice(const InvoicePaper& paper, const InvoiceLayout& layout, const Measures& measures,
                                           const PrintFont& font);

}  // namespace karvel
