#include "books/invoice.h"

#include "books/book_cursor.h"
#include "books/every_row.h"
#include "books/find_card.h"
#include "books/invoice_numbers.h"
#include "books/running_numbers.h"
#include "books/steps.h"

namespace karvel {
namespace {

const Steps step("BookInvoice");
constexpr const char* kTaxAccount = "=110";
constexpr const char* kFromInvoice = "F";  // Nerde

// Made where the shop's cards came without it: the tax must never land on another card.
Status StandOnTaxAccount(Cursor& cards) {
  const Status found = FindCustomer(cards, kTaxAccount);
  if (found.Kind() != ErrorKind::NoRecord) return found;
  if (Status begun = cards.AddNew(); !begun.Ok()) return begun;
  cards.Set("CariKod", kTaxAccount);
  cards.Set("Unvan", "Fatura");
  cards.Set("Hes", "C");
  cards.Set("Hesap", kDebitSide);
  cards.Set("yeni", 1);
  if (Status added = cards.Update(); !added.Ok()) return added;
  return FindCustomer(cards, kTaxAccount);
}

// One invoice on its way through the books. All of its rows bear one moment and one id.
class Posting {
 public:
  Posting(const Shop& shop, const InvoiceOrder& order) : shop_(shop), order_(order) {
    invoice_.number = order.number;
    invoice_.time = shop.clock.Now();
  }

  Status FindCustomer();
  Status ReadLines();
  Status TakeNumber();
  void TakeId();
  void BookLines();
  void BookSums();
  Status BookTax();
  void MarkLines();

  [[nodiscard]] const Invoice& Result() const { return invoice_; }

 private:
  bool AddLine(const Cursor& line, const Cursor& item);
  void BookLine(Cursor& rows, const InvoiceLine& line) const;

  const Shop& shop_;
  const InvoiceOrder& order_;
  Invoice invoice_;
  std::string longerId_;  // SeriNoDiger
};

Status Posting::FindCustomer() {
  BookCursor customer(shop_.stores, "customer", "Cari.Mdb", kCustomerCards);
  if (Status found = karvel::FindCustomer(customer, order_.day.customerCode); !found.Ok()) return found;
  invoice_.customerName = customer.Text("Unvan");
  invoice_.balance = {customer.Number("Bakiye"), customer.Text("Hesap")};
  return {};
}

Status Posting::ReadLines() {
  Cursor lines(shop_.stores, "ticked lines");
  lines.SetDatabaseName("Karvel.Mdb");
  if (Status opened = lines.Open(TickedLinesOf(order_.day)); !opened.Ok()) return opened;
  BookCursor item(shop_.stores, "item", "Stok.Mdb", kItemCards);
  if (order_.itemInFront != 0) step("item in front", item.MoveTo(order_.itemInFront));
  bool fits = true;
  ForEveryRow(lines, step, [&] {
    // The card of one that is gone is the one on which the walk stands.
    step("find item", FindItem(item, lines.Text("StokKod")));
    fits = AddLine(lines, item) && fits;
  });
  return fits ? Status() : Status{ErrorKind::BadText, "more rates of tax than an invoice has places for"};
}

bool Posting::AddLine(const Cursor& line, const Cursor& item) {
  InvoiceLine added;
  added.line = line.CurrentKey();
  added.itemCode = item.Text("StokKod");
  added.itemName = item.Text("StokAdi");
  added.unit = item.Text("Birim");
  added.taxRate = item.Number("Kdv");
  added.quantity = line.Number("Miktar");
  added.price = line.Number("Fiyat");
  added.amount = line.Number("Tutar");
  added.tax = TaxOf(added.amount, added.taxRate, order_.taxMode);
  added.profit = WithoutDust(added.quantity * (added.price - item.Number("Maliyet")));
  invoice_.amount = WithoutDust(invoice_.amount + added.amount);
  invoice_.tax = WithoutDust(invoice_.tax + added.tax);
  invoice_.total = WithoutDust(invoice_.amount + (order_.taxMode == TaxMode::Added ? invoice_.tax : 0));
  invoice_.profit = WithoutDust(invoice_.profit + added.profit);
  invoice_.lines.push_back(added);
  return invoice_.taxes.Add(added.taxRate, added.tax);
}

Status Posting::TakeNumber() {
  const Outcome<std::string> free = FreeInvoiceNumber(shop_, order_.number);
  if (!free) return free.error();
  invoice_.number = *free;
  return {};
}

void Posting::TakeId() {
  const DocumentId ids = NextDocumentId(shop_, invoice_.time);
  invoice_.id = ids.id;
  longerId_ = ids.longer;
}

void Posting::BookLine(Cursor& rows, const InvoiceLine& line) const {
  step("add invoice line", rows.AddNew());
  rows.Set("FatHarNo", invoice_.number);
  rows.Set("FatGirisCikis", 0);
  rows.Set("Tarih", invoice_.time);
  rows.Set("FatCari", order_.day.customerCode);
  rows.Set("FatStok", line.itemCode);
  rows.Set("FatAciklama", line.itemName);
  rows.Set("FatKdv", line.taxRate);
  rows.Set("Nerde", kFromInvoice);
  rows.Set("DigerId", invoice_.id);
  rows.Set("SeriNoDiger", longerId_);
  rows.Set("yeni", 1);
  rows.Set("Birim", line.unit);
  rows.Set("FatMiktar", line.quantity);
  rows.Set("FatFiyat", line.price);
  rows.Set("Kdvsi", line.tax);
  rows.Set("FatTutar", line.amount);
  rows.Set("FatTotal", line.amount);
  rows.Set("FatKar", line.profit);
  step("update invoice line", rows.Update());
}

void Posting::BookLines() {
  RowAdder rows(shop_.stores, "invoice lines", "Fatura.Mdb", "FatHareket");
  for (const InvoiceLine& line : invoice_.lines) BookLine(rows, line);
}

void Posting::BookSums() {
  RowAdder sums(shop_.stores, "invoice", "Fatura.Mdb", "Faturalar");
  step("add invoice", sums.AddNew());
  sums.Set("FaturaNo", invoice_.number);
  sums.Set("FatTarih", invoice_.time);
  sums.Set("FatCari", order_.day.customerCode);
  sums.Set("FatGirisCikis", 0);
  sums.Set("Nakit", 1);
  sums.Set("DigerId", invoice_.id);
  sums.Set("Unvan", invoice_.customerName);
  sums.Set("yeni", 1);
  sums.Set("FatTop", invoice_.amount);
  sums.Set("FatKdvTut", invoice_.tax);
  sums.Set("Toplam", invoice_.total);
  sums.Set("Gurup", "Müşteri");
  sums.Set("FatKar", invoice_.profit);
  step("update invoice", sums.Update());
}

// The tax alone: what was bought stands on the customer's card since it was sold.
Status Posting::BookTax() {
  BookCursor account(shop_.stores, "tax account", "Cari.Mdb", kCustomerCards);
  if (Status found = StandOnTaxAccount(account); !found.Ok()) return found;
  RowAdder ledger(shop_.stores, "ledger", "Cari.Mdb", "CariHareket");
  step("add ledger row", ledger.AddNew());
  ledger.Set("cariharkod", kTaxAccount);
  ledger.Set("Tarih", invoice_.time);
  ledger.Set("Aciklama", invoice_.number + " Fatura ile");
  ledger.Set("Borc", invoice_.tax);
  ledger.Set("DigerId", invoice_.id);
  ledger.Set("Nerde", kFromInvoice);
  ledger.Set("yeni", 1);
  step("update ledger row", ledger.Update());
  AddToBalance(account, step, invoice_.tax, 0);
  return {};
}

void Posting::MarkLines() {
  BookCursor day(shop_.stores, "day book", "Karvel.Mdb", "Datam");
  for (const InvoiceLine& line : invoice_.lines) {
    const Status there = day.MoveTo(line.line);
    step("line", there);
    if (!there.Ok()) continue;
    step("edit line", day.Edit());
    day.Set("Aciklama", "FatNo " + invoice_.number);
    step("update line", day.Update());
  }
}

}  // namespace

Outcome<Invoice> BookInvoice(const Shop& shop, const InvoiceOrder& order) {
  Action action(shop.stores, "BookInvoice");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());
  Posting posting(shop, order);
  if (const Status found = posting.FindCustomer(); !found.Ok()) return std::unexpected(found);
  if (const Status read = posting.ReadLines(); !read.Ok()) return std::unexpected(read);
  if (posting.Result().lines.empty()) return Answer(action, posting.Result());
  if (const Status taken = posting.TakeNumber(); !taken.Ok()) return std::unexpected(taken);
  posting.TakeId();
  posting.BookLines();
  posting.BookSums();
  if (const Status booked = posting.BookTax(); !booked.Ok()) return std::unexpected(booked);
  posting.MarkLines();
  return Answer(action, posting.Result());
}

Outcome<Invoice> WorkOutInvoice(const Shop& shop, const InvoiceOrder& order) {
  // In a turn of its own, though it writes nothing: a line that can't be read must not be missing on the paper.
  Action action(shop.stores, "WorkOutInvoice");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());
  Posting posting(shop, order);
  if (const Status found = posting.FindCustomer(); !found.Ok()) return std::unexpected(found);
  if (const Status read = posting.ReadLines(); !read.Ok()) return std::unexpected(read);
  return Answer(action, posting.Result());
}

}  // namespace karvel
