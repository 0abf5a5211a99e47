#include "documents/day_lines.h"

#include <string_view>

#include "books/book_cursor.h"
#include "books/find_card.h"
#include "books/line_mode.h"
#include "documents/row_walk.h"
#include "store/value.h"

namespace karvel {
namespace {

// Reads the fields of one table's rows by name.
class Fields {
 public:
  explicit Fields(const Table& table) : table_(table) {}
  [[nodiscard]] const Value& Of(const Row& row, std::string_view column) const {
    return row.at(static_cast<std::size_t>(table_.Position(column)));
  }
  [[nodiscard]] std::string Text(const Row& row, std::string_view column) const { return AsText(Of(row, column)); }
  [[nodiscard]] double Number(const Row& row, std::string_view column) const { return AsNumber(Of(row, column)); }

 private:
  const Table& table_;
};

DayLine LineOf(const Fields& fields, const Row& row) {
  DayLine line;
  line.itemCode = fields.Text(row, "StokKod");
  line.itemName = fields.Text(row, "StokAd");
  line.customerName = fields.Text(row, "CariAd");
  line.unit = fields.Text(row, "Birim");
  line.price = fields.Number(row, "Fiyat");
  line.quantity = fields.Number(row, "Miktar");
  line.amount = fields.Number(row, "Tutar");
  line.paid = fields.Number(row, "Tahsilat");
  line.date = AsDate(fields.Of(row, "Tarih"));
  line.kind = fields.Text(row, "Durum");
  line.salesman = fields.Text(row, "Plasiyer");
  line.slipNo = fields.Text(row, "SeriNo");
  line.sent = fields.Text(row, "Sube");
  return line;
}

}  // namespace

std::expected<std::vector<DayLine>, Status> ReadDayLines(Stores& stores, const std::string& source, const std::function<bool()>& goOn) {
  Cursor rows(stores, "day lines");
  rows.SetDatabaseName("Karvel.Mdb");
  if (const Status opened = rows.Open(source); !opened.Ok()) return std::unexpected(opened);
  const Fields fields(*rows.SourceTable());
  std::vector<DayLine> lines;
  const Status read = ForEachRow(rows, [&](const Row& row) {
    lines.push_back(LineOf(fields, row));
    return goOn();
  });
  if (!read.Ok()) return std::unexpected(read);
  return lines;
}

LineTotals TotalsOf(const std::vector<DayLine>& lines) {
  LineTotals totals;
  for (const DayLine& line : lines) {
    if (line.kind == kSaleName) {
      totals.sold += line.amount;
    } else if (line.paid > 0 && line.kind != kCancelledName) {
      if (line.itemName == "Nakit Tahsilat") totals.cash += line.paid;
      if (line.itemName == "Kredi Kartı Tahsilat") totals.card += line.paid;
      if (line.itemName == "Çek Tahsilat") totals.cheques += line.paid;
      if (line.itemName == "Senet Tahsilat") totals.notes += line.paid;
    }
  }
  for (double* const sum : {&totals.sold, &totals.cash, &totals.card, &totals.cheques, &totals.notes}) *sum = WithoutDust(*sum);
  return totals;
}

std::expected<CardBalance, Status> ReadCustomerBalance(Stores& stores, const Cursor& customers) {
  BookCursor cards(stores, "balance", "Cari.Mdb", kCustomerCards);
  const Status found = FindCustomer(cards, customers.Text("CariKod"));
  if (!found.Ok() && found.Kind() != ErrorKind::NoRecord) return std::unexpected(found);
  const Cursor& card = found.Ok() ? cards : customers;
  return CardBalance{card.Number("Bakiye"), card.Text("Hesap")};
}

}  // namespace karvel
