#include "books/sale_line.h"

#include <algorithm>

#include "books/book_cursor.h"
#include "books/due_dates.h"
#include "books/find_card.h"
#include "books/running_numbers.h"
#include "books/safe_calc.h"
#include "books/steps.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kCodeLetters = 20;
const Steps step("BookSaleLine");

// One line on its way through the books. All of its rows bear one moment and one id.
class Posting {
 public:
  Posting(const Shop& shop, const SaleLine& line) : shop_(shop), line_(line), now_(shop.clock.Now()) {}

  Status FindItem() { return item_.MoveTo(line_.itemInFront); }
  Status FindOrMakeCustomer();
  void CountInFirstUnits();
  void RememberPrice() {
    karvel::RememberPrice(shop_.stores, item_, customer_.Text("CariKod"), {line_.priceName, line_.price, line_.priceFormat});
  }
  void BookDueDate() { AddDue(shop_.stores, customer_.Text("CariKod"), now_, line_.amount); }
  void TakeLineId() { id_ = NextLineId(shop_, now_); }
  void WorkOutProfit();
  void BookDay();
  void BookMovement();
  void BookSerials();
  void MoveStock();
  void BookLedger();
  BookedLine MoveBalance();

 private:
  [[nodiscard]] bool IsSale() const { return line_.mode == LineMode::Sale; }
  [[nodiscard]] std::string Mode() const { return std::string(NameOf(line_.mode)); }

  const Shop& shop_;
  const SaleLine& line_;
  const DateTime now_;
  BookCursor item_{shop_.stores, "item", "Stok.Mdb", "StokKartlar"};
  BookCursor customer_{shop_.stores, "customer", "Cari.Mdb", kCustomerCards};
  std::string id_;       // DigerId
  std::string unit_;     // in which the line was sold
  double quantity_ = 0;  // in first units
  double profit_ = 0;
};

// He is looked for among all cards: another terminal may have moved his out of the list that stood on the screen.
Status Posting::FindOrMakeCustomer() {
  if (Status found = FindCustomer(customer_, line_.customerCode); found.Kind() != ErrorKind::NoRecord) return found;
  // A line can make its own customer. Another terminal's line may have made him already: two cards of one code would share a ledger.
  const std::string code = LeftLetters(line_.customerName, kCodeLetters);
  if (Status found = FindCustomer(customer_, code); found.Kind() != ErrorKind::NoRecord) return found;
  step("add customer", customer_.AddNew());
  customer_.Set("CariKod", code);
  customer_.Set("Unvan", line_.customerName);
  customer_.Set("yeni", 1);
  if (Status added = customer_.Update(); !added.Ok()) return added;
  return FindCustomer(customer_, code);
}

// The stock counts first units. The amount stays what it is: it was worked out in the unit that the clerk saw.
void Posting::CountInFirstUnits() {
  const bool inPacks = line_.priceName == PriceName::Second;
  const double pieces = inPacks ? item_.Number("Adet2") : 0;
  unit_ = item_.Text(inPacks ? "Birim2" : "Birim");
  // As the plain number that a clerk would write down: 0,1 × 3 is 0,3 in every row.
  quantity_ = pieces == 0 ? line_.quantity : NumberOrZero(PlainNumber(line_.quantity * pieces));
}

void Posting::WorkOutProfit() {
  if (item_.Number("Maliyet") == 0) return;  // the shop doesn't follow this item's profit
  const std::string cost = SafeCalc(CalcOp::Multiply, quantity_, item_.Number("gFiyat"));
  // A loss is booked as no profit.
  profit_ = std::max(0.0, SafeCalcNumber(CalcOp::Subtract, line_.amount, cost));
}

void Posting::BookDay() {
  RowAdder day(shop_.stores, "day book", "Karvel.Mdb", "Datam");
  step("add day-book row", day.AddNew());
  day.Set("CariKod", customer_.Text("CariKod"));
  day.Set("StokKod", item_.Text("StokKod"));
  day.Set("CariAd", customer_.Text("Unvan"));
  day.Set("StokAd", item_.Text("StokAdi"));
  day.Set("Fiyat", line_.price);
  day.Set("Miktar", quantity_);
  day.Set("Tutar", line_.amount);
  day.Set("Tarih", now_);
  day.Set("DigerId", id_);
  day.Set("Birim", unit_);
  day.Set("yeni", 1);
  day.Set("Durum", Mode());
  day.Set("Gurup", item_.Text("Gurup"));
  day.Set("Plasiyer", DayBookTag(shop_));
  day.Set("tGurup", DayBookTag(shop_));
  day.Set("SeriNo", line_.slipNo);
  day.Set("Kar", profit_);
  step("update day-book row", day.Update());
}

void Posting::BookMovement() {
  RowAdder movement(shop_.stores, "stock movements", "Stok.Mdb", "StokHareket");
  step("add movement", movement.AddNew());
  movement.Set("StokHarKod", item_.Text("StokKod"));
  movement.Set("Tarih", now_.Date());
  movement.Set("Aciklama", item_.Text("StokAdi") + " " + Mode() + " İle");
  movement.Set("Tutar", line_.amount);
  movement.Set("Birim", unit_);
  movement.Set("Miktar", quantity_);
  movement.Set("Fiyat", line_.price);
  movement.Set("GirisCikis", Mode());
  movement.Set("Carisi", customer_.Text("CariKod"));
  movement.Set("DigerId", id_);
  movement.Set("Nerde", "C");
  movement.Set("SatTar", now_.Date());
  movement.Set("StokAd", item_.Text("StokAdi"));
  movement.Set("Unvan", customer_.Text("Unvan"));
  movement.Set("Barkod", item_.Text("Barkod"));
  movement.Set("Maliyet", item_.Number("gFiyat"));
  movement.Set("SeriNo", line_.itemSerial);
  movement.Set("Gurup", item_.Text("Gurup"));
  movement.Set("yeni", 1);
  // Goods that come back take nothing off a salesman's group.
  const bool ofSalesman = !line_.salesmanGroup.empty() && line_.mode != LineMode::Return;
  movement.Set("Plasiyer", ofSalesman ? line_.salesmanGroup : MovementTag(shop_));
  movement.Set("tGurup", MovementTag(shop_));
  movement.Set("Kar", profit_);
  step("update movement", movement.Update());
}

void Posting::BookSerials() {
  if (line_.serials.empty()) return;
  RowAdder serials(shop_.stores, "serial numbers", "SeriNo.Mdb", "SeriNo");
  for (const std::string& serial : line_.serials) {
    step("add serial", serials.AddNew());
    serials.Set("StokKod", item_.Text("StokKod"));
    serials.Set("CariKod", customer_.Text("CariKod"));
    serials.Set("StokAd", item_.Text("StokAdi"));
    serials.Set("CariAd", customer_.Text("Unvan"));
    serials.Set("Tarih", now_);
    serials.Set("alsat", std::string(kPurchaseName));
    serials.Set("yeni", 1);
    serials.Set("DigerId", id_);
    serials.Set("AlFiyat", line_.price);
    serials.Set("barcode", serial);
    step("update serial", serials.Update());
  }
}

void Posting::MoveStock() {
  const char* const count = IsSale() ? "CikanMik" : "GirenMik";
  const char* const total = IsSale() ? "CikanTutar" : "GirenTutar";
  step("edit stock card", item_.Edit());
  item_.Set(count, SafeCalc(CalcOp::Add, quantity_, item_.Get(count)));
  item_.Set(total, SafeCalc(CalcOp::Add, item_.Get(total), line_.amount));
  // What is bought has earned nothing yet, whatever its movement says.
  if (IsSale()) item_.Set("Kar", SafeCalc(CalcOp::Add, item_.Get("Kar"), profit_));
  ApplyStockBalance(item_);
  step("update stock card", item_.Update());
}

void Posting::BookLedger() {
  RowAdder ledger(shop_.stores, "ledger", "Cari.Mdb", "CariHareket");
  step("add ledger row", ledger.AddNew());
  ledger.Set("cariharkod", customer_.Text("CariKod"));
  ledger.Set("Tarih", now_);
  ledger.Set("Aciklama", item_.Text("StokAdi") + " " + Mode());
  ledger.Set("Bilgi1", item_.Text("StokKod"));
  ledger.Set("Bilgi2", item_.Text("StokAdi"));
  ledger.Set("Birim", item_.Text("Birim"));  // the first unit, also of a line that was sold in packs
  ledger.Set("Borc", IsSale() ? line_.amount : 0.0);
  ledger.Set("Alacak", IsSale() ? 0.0 : line_.amount);
  ledger.Set("Carisi", item_.Text("StokKod"));
  ledger.Set("Unvan", item_.Text("StokAdi"));
  ledger.Set("DigerId", id_);
  ledger.Set("Nerde", "S");
  ledger.Set("Miktar", quantity_);
  ledger.Set("Fiyat", line_.price);
  ledger.Set("yeni", 1);
  step("update ledger row", ledger.Update());
}

BookedLine Posting::MoveBalance() {
  const CardBalance balance = AddToBalance(customer_, step, IsSale() ? line_.amount : 0, IsSale() ? 0 : line_.amount);
  return {id_, customer_.Text("CariKod"), balance};
}

}  // namespace

Outcome<BookedLine> BookSaleLine(const Shop& shop, const SaleLine& line) {
  Action action(shop.stores, "BookSaleLine");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());

  Posting posting(shop, line);
  if (const Status found = posting.FindItem(); !found.Ok()) return std::unexpected(found);
  if (const Status found = posting.FindOrMakeCustomer(); !found.Ok()) return std::unexpected(found);
  posting.CountInFirstUnits();
  if (line.mode != LineMode::Return) {
    posting.RememberPrice();
    posting.BookDueDate();
    posting.WorkOutProfit();
  }
  posting.TakeLineId();
  posting.BookDay();
  posting.BookMovement();
  posting.BookSerials();
  posting.MoveStock();
  posting.BookLedger();
  BookedLine booked = posting.MoveBalance();

  return Answer(action, std::move(booked));
}

}  // namespace karvel
