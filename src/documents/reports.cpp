#include "documents/reports.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/day_sums.h"
#include "desk/quiet_line.h"
#include "documents/day_lines.h"
#include "documents/order_list.h"
#include "documents/row_walk.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// Quantities by StokKod, as the desk compares texts.
using Quantities = std::unordered_map<std::string, double>;

// The day of the first line of the source; none without a line.
Status ReadDay(Stores& stores, const std::string& source, DateTime& day) {
  const BookCursor line(stores, "day of a line", "Karvel.Mdb", source);
  std::vector<GridRow> rows;
  const Status read = line.RowsFromStart(1, rows);
  const auto date = static_cast<std::size_t>(line.SourceTable()->Position("Tarih"));
  day = rows.empty() ? DateTime() : AsDate(rows.front().values.at(date)).Date();
  return read;
}

// What was sold day by day, so that a long span can be stopped. The days before the first line and behind the last cost nothing.
Status SumSold(Stores& stores, PrintJob& job, DateTime from, DateTime until, Quantities& sold) {
  DateTime first, last;
  Status found = ReadDay(stores, "Select * From Datam Where " + FromDay(from) + " Order By Tarih Asc", first);
  if (found.Ok()) found = ReadDay(stores, "Select * From Datam Where " + UntilDay(until) + " Order By Tarih Desc", last);
  if (!found.Ok()) return found;
  from = std::max(from, first);
  until = std::min(until, last);
  const auto days = static_cast<std::size_t>(std::max<std::int64_t>(0, until.DayNumber() - from.DayNumber() + 1));
  std::vector<TextSum> sums;
  for (std::size_t day = 0; day < days && job.GoOn(day, days); ++day) {
    const std::string query =
        "Select Sum(Miktar) FROM Datam Where " + DayCriteria(from.PlusDays(static_cast<std::int64_t>(day))) + " And Durum='Satış'";
    if (const Status read = stores.QuerySumsBy("Karvel.Mdb", query, "StokKod", sums); !read.Ok()) return read;
    for (const TextSum& sum : sums) sold[FoldKey(sum.text)] += sum.sum;
  }
  return {};
}

}  // namespace

Reports::Reports(const DeskParts& parts, PrinterSelection& printers)
    : parts_(parts), printers_(printers), screen_(parts.screen), world_(parts.world) {
  connections_ += screen_.Command1.click.Connect([this] {
    if (screen_.Command1.Caption() != caption::kCollectAtOnce && PrintsReport(screen_)) Print();
  });
}

void Reports::Print() {
  printers_.SelectForReports();  // where it is gone, the one in use prints
  if (!screen_.CiroChk.Checked()) {
    PrintStockStatus();
  } else if (screen_.CiroYaz(1).Checked()) {
    PrintOrders();
  } else {
    PrintTurnover();
  }
  screen_.Command1.SetFocus();
}

void Reports::PrintDrawing(PrintJob& job, const std::function<Drawing(const Measures&, const PrintFont&)>& draw) {
  const auto font = job.PrepareReport();
  if (!font) return;
  const PrinterMeasures measures(world_.printer, ScaleMode::Pixels);
  job.Print(draw(measures, *font)).Ignore();  // told
}

void Reports::PrintOrders() {
  const std::string dates = FromDay(screen_.DTPicker2(0).Date()) + " And " + UntilDay(screen_.DTPicker2(1).Date());
  parts_.form.CriteriaText = dates;
  PrintJob job(parts_, "Sipariş listesi");
  std::size_t read = 0;
  const auto lines =
      ReadDayLines(world_.stores, "Select * From Datam Where " + dates + " Order By Tarih Asc", [&] { return job.GoOn(++read, 0); });
  Value ordered;
  Status summed = lines ? Status() : lines.error();
  if (summed.Ok() && !job.Stopped())
    summed = world_.stores.QueryValue("Karvel.Mdb", "Select sum(Tutar) FROM Datam Where Durum='Sipariş' And " + dates, ordered);
  if (!summed.Ok()) Tell(screen_, ReadingMessage(summed));
  if (!summed.Ok() || job.Stopped()) return;
  PrintDrawing(job, [&](const Measures& measures, const PrintFont& font) {
    return DrawOrderList(measures, font, *lines, world_.clock.Now(), WithoutDust(AsNumber(ordered)));
  });
}

std::expected<std::vector<SoldItem>, Status> Reports::SoldItems(PrintJob& job, const DateTime& from, const DateTime& until) const {
  Quantities sold;
  if (const Status read = SumSold(world_.stores, job, from, until, sold); !read.Ok()) return std::unexpected(read);
  Cursor cards(world_.stores, "turnover cards");
  cards.SetDatabaseName("Stok.Mdb");
  if (const Status opened = cards.Open(parts_.cursors.StokData.RecordSource()); !opened.Ok()) return std::unexpected(opened);
  const auto code = static_cast<std::size_t>(cards.SourceTable()->Position("StokKod"));
  const auto name = static_cast<std::size_t>(cards.SourceTable()->Position("StokAdi"));
  std::vector<SoldItem> items;
  std::size_t read = 0;
  const Status walked = ForEachRow(cards, [&](const Row& card) {
    const auto found = sold.find(FoldKey(AsText(card[code])));
    if (found != sold.end() && WithoutDust(found->second) > 0) items.push_back({AsText(card[name]), WithoutDust(found->second)});
    return job.GoOn(++read, 0);
  });
  if (!walked.Ok()) return std::unexpected(walked);
  return items;
}

void Reports::PrintTurnover() {
  const DateTime from = screen_.DTPicker2(0).Date(), until = screen_.DTPicker2(1).Date();
  parts_.form.CriteriaText = FromDay(from) + " And " + UntilDay(until);
  if (!FiguresAreRead(screen_)) {
    Tell(screen_, "Ciro yazdırılmadı: toplamları okunamadı, tarihi yeniden seçin");
    return;
  }
  PrintJob job(parts_, "Ciro");
  const auto items = SoldItems(job, from, until);
  if (!items) Tell(screen_, ReadingMessage(items.error()));
  if (!items || job.Stopped()) return;
  PrintDrawing(job, [&](const Measures& measures, const PrintFont& font) {
    return DrawTurnover(measures, font, StyleOf(parts_), *items, FiguresOf(screen_), from, until);
  });
}

std::expected<std::vector<StockLine>, Status> Reports::StockLines(PrintJob& job) const {
  Cursor cards(world_.stores, "stock status");
  cards.SetDatabaseName("Stok.Mdb");
  if (const Status opened = cards.Open(parts_.cursors.CariData.RecordSource()); !opened.Ok()) return std::unexpected(opened);
  const auto at = [&cards](const char* column) { return static_cast<std::size_t>(cards.SourceTable()->Position(column)); };
  const std::size_t name = at("StokAdi"), in = at("GirenMik"), out = at("CikanMik"), oversold = at("KalanA"), onHand = at("KalanB");
  std::vector<StockLine> lines;
  const Status walked = ForEachRow(cards, [&](const Row& card) {
    lines.push_back({AsText(card[name]), AsNumber(card[in]), AsNumber(card[out]), AsNumber(card[oversold]), AsNumber(card[onHand])});
    return job.GoOn(lines.size(), 0);
  });
  if (!walked.Ok()) return std::unexpected(walked);
  return lines;
}

void Reports::PrintStockStatus() {
  PrintJob job(parts_, "Stok durum raporu");
  const auto lines = StockLines(job);
  if (!lines) Tell(screen_, ReadingMessage(lines.error()));
  if (!lines || job.Stopped()) return;
  PrintDrawing(job, [&](const Measures& measures, const PrintFont& font) {
    return DrawStockStatus(measures, font, StyleOf(parts_), *lines, world_.clock.Now());
  });
}

}  // namespace karvel
