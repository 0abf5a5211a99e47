// An invoice over lines that a customer bought: what was sold and moved stands in the books since each line was posted, so an invoice adds
// its own rows and the tax that the shop owes, bound by one DigerId:
//
//   FatHareket    one row a line: what, how much, its tax, its profit
//   Faturalar     one row: the sums
//   CariHareket   one row under "=110": Borc = the tax         card "=110": Borc += the tax
//   Datam         each line: Aciklama = "FatNo " and the number, so that no line goes on two invoices
#pragma once

#include <string>
#include <vector>

#include "books/card_balance.h"
#include "books/invoice_lines.h"
#include "books/invoice_tax.h"
#include "books/shop.h"
#include "store/row.h"

namespace karvel {

struct InvoiceOrder {
  InvoiceDay day;      // whose ticked lines
  std::string number;  // as the clerk saw it; one that an invoice bears already is counted on
  TaxMode taxMode = TaxMode::Added;
  RowKey itemInFront = 0;  // stands in for a line's card that is gone; 0: the first of the stock
};

struct InvoiceLine {
  RowKey line = 0;                       // of the day book
  std::string itemCode, itemName, unit;  // as the card has them
  double taxRate = 0;                    // percent
  double quantity = 0, price = 0, amount = 0;
  double tax = 0, profit = 0;
};

struct Invoice {
  std::string number;
  DateTime time;
  std::string id;  // DigerId; "" where nothing was booked
  std::string customerName;
  CardBalance balance;  // the customer's
  std::vector<InvoiceLine> lines;
  TaxTable taxes;
  double amount = 0;  // of the lines, as they were sold
  double tax = 0;
  double total = 0;  // with the tax
  double profit = 0;
};

// Books the invoice of the ticked lines. Where none is ticked nothing is written, and the answer has no lines. NoRecord when the customer's
// card is gone; BadText where the lines bear more than six rates of tax.
Outcome<Invoice> BookInvoice(const Shop& shop, const InvoiceOrder& order);
// The same invoice, worked out anew and written nowhere: for lines that are printed once more.
Outcome<Invoice> WorkOutInvoice(const Shop& shop, const InvoiceOrder& order);

}  // namespace karvel
