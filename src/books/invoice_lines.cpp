#include "books/invoice_lines.h"

#include <vector>

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/day_sums.h"
#include "books/every_row.h"
#include "books/line_mode.h"
#include "books/sources.h"
#include "books/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("InvoiceLines");
const std::string kDayBook = "Karvel.Mdb";

bool IsTicked(const Cursor& line) {
  return line.Text("Sec") == kTicked;
}

// The rows before one of them is written: a line that is changed must not move the walk.
std::vector<RowKey> KeysOf(Cursor& lines) {
  std::vector<RowKey> keys;
  ForEveryRow(lines, step, [&] { keys.push_back(lines.CurrentKey()); });
  return keys;
}

// What the stock lacks for a quantity; below 0 where there is more.
double MissingOf(Cursor& stock, const std::string& code, double quantity) {
  const Status found = stock.FindFirst("StokKod=" + sources::Quoted(code));
  step("find stock", found);
  return found.Ok() ? WithoutDust(quantity - (stock.Number("Giren") - stock.Number("Cikan"))) : quantity;
}

void Tick(Cursor& line, Cursor& stock) {
  step("edit line", line.Edit());
  line.Set("Sec", kTicked);
  line.Set("Eksik", MissingOf(stock, line.Text("StokKod"), line.Number("Miktar")));
  step("update line", line.Update());
}

void SetTick(Cursor& line, const std::string& tick) {
  if (line.Text("Sec") == tick) return;
  step("edit line", line.Edit());
  line.Set("Sec", tick);
  step("update line", line.Update());
}

}  // namespace

std::string LinesOf(const InvoiceDay& day) {
  return std::string("Select * From Datam Where ") + (day.withInvoiced ? "" : "Aciklama='' And ") +
         "CariKod=" + sources::Quoted(day.customerCode) + " And Durum='" + std::string(kSaleName) + "' And " + DayCriteria(day.day) +
         " Order By Tarih Asc";
}

std::string TickedLinesOf(const InvoiceDay& day) {
  return ReplaceAll(LinesOf(day), "Datam Where ", "Datam Where Sec='X' And ");
}

Status TickFirstLines(const Shop& shop, const InvoiceDay& day, double most) {
  Action action(shop.stores, "TickFirstLines");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor lines(shop.stores, "lines", kDayBook, LinesOf(day));
  BookCursor line(shop.stores, "line", kDayBook, "Datam");
  BookCursor stock(shop.stores, "stock in and out", "Fatura.Mdb", "GirenCikan");
  int walked = 0;
  for (const RowKey key : KeysOf(lines)) {
    const Status there = line.MoveTo(key);
    step("line", there);
    if (!there.Ok()) continue;
    if (walked < most) {
      Tick(line, stock);
    } else {
      SetTick(line, "");
    }
    ++walked;
  }
  return action.Finish();
}

Status TurnTick(const Shop& shop, RowKey line, bool byHand) {
  Action action(shop.stores, "TurnTick");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor day(shop.stores, "line", kDayBook, "Datam");
  if (Status there = day.MoveTo(line); !there.Ok()) return there;
  if (Status begun = day.Edit(); !begun.Ok()) return begun;
  const bool ticked = IsTicked(day);
  if (ticked && byHand) day.Set("Secc", kTicked);
  day.Set("Sec", ticked ? "" : kTicked);
  step("update line", day.Update());
  return action.Finish();
}

Status TurnAllTicks(const Shop& shop, const InvoiceDay& day) {
  Action action(shop.stores, "TurnAllTicks");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor lines(shop.stores, "lines", kDayBook, LinesOf(day));
  const std::string tick = lines.HasCurrent() && IsTicked(lines) ? "" : kTicked;
  BookCursor line(shop.stores, "line", kDayBook, "Datam");
  for (const RowKey key : KeysOf(lines)) {
    const Status there = line.MoveTo(key);
    step("line", there);
    if (there.Ok()) SetTick(line, tick);
  }
  return action.Finish();
}

Outcome<int> CountTicked(const Shop& shop, const InvoiceDay& day) {
  // In a turn of its own, though it writes nothing: lines that can't be read must not count as none.
  Action action(shop.stores, "CountTicked");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());
  const BookCursor lines(shop.stores, "ticked lines", kDayBook, TickedLinesOf(day));
  const auto count = static_cast<int>(lines.RecordCount());
  return Answer(action, count);
}

}  // namespace karvel
