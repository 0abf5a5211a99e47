// Lines as the sale screen hands them over, at the prices of the fixture's items, and their rows.
#pragma once

#include <string>

#include "books/sale_line.h"
#include "tests/support/books_fixture.h"

namespace karvel {

class SaleLineFixture : public BooksFixture {
 protected:
  SaleLine Line(const std::string& item, double quantity, double price) {
    SaleLine line;
    line.itemInFront = Item(item);
    line.customerCode = "C001";
    line.customerName = "Ayşe Yılmaz";
    line.price = price;
    line.quantity = quantity;
    line.amount = price * quantity;
    line.slipNo = "000001";
    return line;
  }
  SaleLine LineOf(LineMode mode, const std::string& item, double quantity, double price) {
    SaleLine line = Line(item, quantity, price);
    line.mode = mode;
    return line;
  }
  // Its id; the line must go through.
  std::string Book(const SaleLine& line) {
    const auto booked = BookSaleLine(shop, line);
    if (booked) return booked->id;
    ADD_FAILURE() << booked.error().Message();
    return {};
  }
  Fields LedgerRow(const std::string& id) { return RowOf("Cari.mdb", "CariHareket", "DigerId='" + id + "'"); }
};

}  // namespace karvel
