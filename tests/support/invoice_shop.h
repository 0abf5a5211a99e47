// A shop whose customer bought some things that can go on an invoice.
#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

#include "books/invoice.h"
#include "tests/support/posted_lines.h"

namespace karvel {

class InvoiceShop : public PostedLines {
 protected:
  InvoiceShop() {
    Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=18, Birim='Adet' WHERE StokKod='1001'");
    Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=8, Birim='Kg' WHERE StokKod='1002'");
  }

  struct Bought {
    std::string id{}, item = "1001", customer = "C001";
    double price = 50, quantity = 2;
    std::string time = "2026-03-01 09:00:00", tick = "X", state = "Satış", description{};
  };
  void Put(const Bought& line) {
    Sql("Karvel.mdb", fmt::format("INSERT INTO Datam(CariKod, StokKod, StokAd, Fiyat, Miktar, Tutar, Tarih, DigerId, Durum, Sec, Aciklama) "
                                  "VALUES('{}','{}','Ne',{},{},{},'{}','{}','{}','{}','{}')",
                                  Q(line.customer), Q(line.item), line.price, line.quantity, line.price * line.quantity, line.time, line.id,
                                  line.state, line.tick, line.description));
  }
  InvoiceDay Today() const { return {"C001", clock.now, false}; }
  InvoiceOrder Order(const std::string& number = "S000001", TaxMode mode = TaxMode::Added) const {
    InvoiceOrder order;
    order.day = Today();
    order.number = number;
    order.taxMode = mode;
    return order;
  }
  Invoice Book(const InvoiceOrder& order) {
    const Outcome<Invoice> booked = BookInvoice(shop, order);
    EXPECT_TRUE(booked.has_value()) << (booked ? "" : booked.error().Message());
    return booked.value_or(Invoice{});
  }
  std::vector<std::string> Ticks() { return Rows("Karvel.mdb", "SELECT DigerId || Sec FROM Datam ORDER BY DigerId"); }
};

}  // namespace karvel
