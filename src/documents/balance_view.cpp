#include "documents/balance_view.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/day_sums.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "documents/row_walk.h"
#include "platform/clerk_message.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("BalanceView");
constexpr const char* kScratchFile = "DataTemp.Mdb";
constexpr const char* kScratchTable = "CariHareket";
constexpr std::size_t kTextLetters = 50;
constexpr int kDay = 1, kStatement = 2;  // of Command5

Status SumBefore(Stores& stores, const std::string& field, const std::string& customer, const DateTime& day, double& sum) {
  Value value;
  const Status read = stores.QueryValue("Cari.Mdb",
                                        "Select Sum(" + field + ") FROM CariHareket Where CariHarKod=" + sources::Quoted(customer) +
                                            " And Tarih<#" + Format(day, "mm/dd/yyyy") + " 00:00:00#",
                                        value);
  sum = AsNumber(value);
  return read;
}

}  // namespace

void RunBalance(std::vector<BalanceLine>& lines, double creditedBefore, double debitedBefore) {
  double credited = creditedBefore, debited = debitedBefore;
  for (BalanceLine& line : lines) {
    credited = WithoutDust(credited + line.credit);
    debited = WithoutDust(debited + line.debit);
    const bool more = credited > debited;
    line.balance = RoundTo(more ? credited - debited : debited - credited, 2);
    line.side = more ? kDebitSide : kCreditSide;
  }
}

BalanceView::BalanceView(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world) {
  Screen& screen = screen_;
  connections_ += screen.CariHesCmd.click.Connect([&screen] {
    screen.CariHesCmd.SetVisible(false);
    screen.Command5(kDay).Press();
    screen.CariHesCmd.SetVisible(true);  // also where nobody is in front
  });
  connections_ += screen.CariCmd.click.Connect([this] { PrintAll(); });
  connections_ += screen.CariKapat.click.Connect([&screen] { screen.CariFrame.SetVisible(false); });
  // Its statement begins at the date of the print choice.
  connections_ += screen.Frame3.altered.Connect([&screen] {
    if (!screen.Frame3.Visible()) screen.CariFrame.SetVisible(false);
  });
  connections_ += screen.Command5(kStatement).changed.Connect([&screen] {
    screen.CariHesCmd.SetEnabled(screen.Command5(kStatement).Caption() != caption::kPrintFromDate);
  });
}

void BalanceView::Rebuild(const std::string& customerCode, const DateTime& from) {
  const auto lines = ReadLines(customerCode, from);
  built_ = lines ? Write(*lines) : lines.error();
  step("scratch table", built_);
}

std::expected<std::vector<BalanceLine>, Status> BalanceView::ReadLines(const std::string& customerCode, const DateTime& from) const {
  double credited = 0, debited = 0;
  if (const Status read = SumBefore(world_.stores, "Alacak", customerCode, from, credited); !read.Ok()) return std::unexpected(read);
  if (const Status read = SumBefore(world_.stores, "Borc", customerCode, from, debited); !read.Ok()) return std::unexpected(read);
  Cursor ledger(world_.stores, "statement lines");
  ledger.SetDatabaseName("Cari.Mdb");
  const Status opened = ledger.Open("Select * From CariHareket Where CariHarKod=" + sources::Quoted(customerCode) + " And Borc<>0 And " +
                                    FromDay(from) + " Order By Tarih Asc");
  if (!opened.Ok()) return std::unexpected(opened);
  const Table& table = *ledger.SourceTable();
  const auto of = [&table](const Row& row, const char* column) { return row.at(static_cast<std::size_t>(table.Position(column))); };
  std::vector<BalanceLine> lines;
  const Status read = ForEachRow(ledger, [&](const Row& row) {
    lines.push_back({AsDate(of(row, "Tarih")), LeftLetters(AsText(of(row, "Aciklama")), kTextLetters), AsNumber(of(row, "Borc")),
                     AsNumber(of(row, "Alacak")), 0, ""});
    return true;
  });
  if (!read.Ok()) return std::unexpected(read);
  RunBalance(lines, credited, debited);
  return lines;
}

Status BalanceView::Write(const std::vector<BalanceLine>& lines) {
  Action action(world_.stores, "statement lines");
  if (!action.Begun().Ok()) return action.Begun();
  if (Status emptied = world_.stores.Execute(kScratchFile, "DELETE FROM CariHareket;"); !emptied.Ok()) return emptied;
  RowAdder scratch(world_.stores, "scratch", kScratchFile, kScratchTable);
  for (const BalanceLine& line : lines) {
    if (Status added = scratch.AddNew(); !added.Ok()) return added;
    scratch.Set("Tarih", line.date);
    scratch.Set("Aciklama", Value(line.text));
    scratch.Set("Borc", line.debit);
    scratch.Set("Alacak", line.credit);
    scratch.Set("Bakiye", line.balance);
    scratch.Set("Hesap", Value(line.side));
    if (Status written = scratch.Update(); !written.Ok()) return written;
  }
  return action.Finish();
}

bool BalanceView::ShowIfAsked() {
  if (screen_.CariHesCmd.Visible()) return false;
  screen_.CariHesCmd.SetVisible(true);
  if (!built_.Ok()) {
    Tell(screen_, ReadingMessage(built_));
    return true;
  }
  GridElement& grid = screen_.CariDBGrid;
  if (grid.Columns().empty()) {
    const std::string& money = form_.PriceFormat;
    grid.SetColumns({{"Tarih", "Tarih", true, Align::Left, "Short Date"},
                     {"Açıklama", "Aciklama"},
                     {"Borç", "Borc", true, Align::Right, money},
                     {"Alacak", "Alacak", true, Align::Right, money},
                     {"Bakiye", "Bakiye", true, Align::Right, money},
                     {"Hesap", "Hesap"}});
    grid.SetSource(&cursors_.DataTmp);
    grid.columnsSwitched();
  }
  cursors_.DataTmp.SetDatabaseName(kScratchFile);
  step("show", cursors_.DataTmp.Open(kScratchTable));
  screen_.CariFrame.SetVisible(true);
  screen_.CariFrame.BringToFront();
  grid.SetFocus();
  return true;
}

void BalanceView::PrintAll() {
  screen_.Command5(kStatement).SetCaption(caption::kPrintFromDate);
  screen_.Command5(kStatement).Press();
  screen_.Command5(kStatement).SetCaption(caption::kPrintAll);  // also where nothing could be printed
  screen_.CariFrame.SetVisible(false);
}

}  // namespace karvel
