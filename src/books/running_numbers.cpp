#include "books/running_numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "books/book_cursor.h"
#include "books/sources.h"
#include "books/steps.h"
#include "platform/log.h"
#include "settings/terminal.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("NextIndex");
const std::string kFile = "Index.Mdb";

// Each year has its own row in the list of years.
void KeepYear(Stores& stores, const std::string& key, const std::string& criteria) {
  BookCursor years(stores, "years", kFile, "Tarih");
  if (years.FindFirst(criteria).Kind() != ErrorKind::NoRecord) return;
  step("add year", years.AddNew());
  years.Set("Tarih", key);
  step("update year", years.Update());
}

// The number that is now stored as the last one; "" when none could be.
std::string CountOn(Stores& stores, int mode, const std::string& key, const std::string& criteria) {
  const char* const counted = mode == 0 ? "Indexi" : "Serino";
  const char* const other = mode == 0 ? "Serino" : "Indexi";
  BookCursor counters(stores, "counters", kFile, "Mdbindex");
  std::string number;
  if (const Status found = counters.FindFirst(criteria); found.Ok()) {
    step("edit counters", counters.Edit());  // reads the counter under the lock, so no other terminal has it
    const std::string last = counters.Text(counted);
    number = LeftLetters(last, 2) + PlainNumber(NumberOrZero(MidLetters(last, 2)) + 1);
  } else if (found.Kind() == ErrorKind::NoRecord) {
    const std::string year = RightLetters(key, 2);
    number = year + "1";
    step("add counters", counters.AddNew());
    counters.Set("Tarih", key);
    counters.Set(other, year + "0");
  } else {
    return {};  // counters that can't be read now are there all the same: a second row would count from 1 again
  }
  counters.Set(counted, number);
  return counters.Update().Ok() ? number : std::string();
}

// The tables whose rows bear a DigerId, and the most digits that its count can have beside the year.
struct BookedTable {
  const char* file;
  const char* table;
};
constexpr std::array kBooked{BookedTable{"Karvel.Mdb", "Datam"}, BookedTable{"Stok.Mdb", "StokHareket"},
                             BookedTable{"Cari.Mdb", "CariHareket"}};
constexpr std::size_t kMostDigits = 8;

double CountOf(const std::string& indexi) {
  return NumberOrZero(MidLetters(indexi, 2));
}

// Of two counts with as many digits the greater one stands behind in text order, and one with more digits is greater. So a terminal is
// looked through from the most digits down to those of the highest count that is known.
Status LookThrough(Cursor& rows, const std::string& terminal, const std::string& year, double& highest) {
  if (Status any = rows.FindFirst("DigerId Like '" + terminal + "0*'"); !any.Ok()) return any;
  for (std::size_t digits = kMostDigits; digits >= std::max<std::size_t>(1, PlainNumber(highest).size()); --digits) {
    const std::string before = terminal + std::string(kMostDigits - digits, '0') + year;
    const Status found = rows.FindFirst("DigerId Like '" + before + std::string(digits, '#') + "'");
    if (found.Kind() == ErrorKind::NoRecord) continue;
    if (found.Ok()) highest = std::max(highest, NumberOrZero(rows.Text("DigerId").substr(before.size())));
    return found;
  }
  return {};
}

// Each terminal looks after the ids that begin with its own number: nobody else gives them out.
Status HighestBooked(const Shop& shop, const std::string& year, double& highest) {
  for (const BookedTable& booked : kBooked) {
    Cursor rows(shop.stores, "booked ids");
    rows.SetDatabaseName(booked.file);
    if (Status opened = rows.Open(std::string("Select * From ") + booked.table + " Order By DigerId Desc"); !opened.Ok()) return opened;
    const Status looked = LookThrough(rows, TerminalNumber(shop.terminalNo), year, highest);
    if (!looked.Ok() && looked.Kind() != ErrorKind::NoRecord) return looked;
  }
  return {};
}

// 0 where the year has no counter yet.
Status ReadCounter(Stores& stores, const std::string& key, double& counted) {
  BookCursor counters(stores, "counters", kFile, "Mdbindex");
  const Status found = counters.FindFirst("Tarih=" + sources::Quoted(key));
  if (found.Ok()) counted = CountOf(counters.Text("Indexi"));
  return found.Kind() == ErrorKind::NoRecord ? Status() : found;
}

// Never lowers: another terminal may have counted on, or raised it, meanwhile.
Status Raise(Stores& stores, const std::string& key, double count) {
  Action action(stores, "KeepCounterAhead");
  if (!action.Begun().Ok()) return action.Finish();
  const std::string criteria = "Tarih=" + sources::Quoted(key);
  KeepYear(stores, key, criteria);
  const std::string year = RightLetters(key, 2);
  BookCursor counters(stores, "counters", kFile, "Mdbindex");
  Status raised = counters.FindFirst(criteria);
  if (raised.Kind() == ErrorKind::NoRecord) {
    raised = counters.AddNew();
    counters.Set("Tarih", key);
    counters.Set("Serino", year + "0");
  } else if (raised.Ok()) {
    raised = counters.Edit();
  }
  if (raised.Ok() && CountOf(counters.Text("Indexi")) < count) counters.Set("Indexi", year + PlainNumber(count));
  if (raised.Ok()) raised = counters.Update();
  const Status done = action.Finish();
  return raised.Ok() ? done : raised;
}

}  // namespace

Status KeepCounterAhead(const Shop& shop) {
  const std::string key = Format(shop.clock.Now(), "yyyy");
  double booked = 0, counted = 0;
  if (Status found = HighestBooked(shop, RightLetters(key, 2), booked); !found.Ok()) return found;
  if (Status read = ReadCounter(shop.stores, key, counted); !read.Ok()) return read;
  if (counted >= booked) return {};
  Log(fmt::format("KeepCounterAhead: the books hold line {}, the counter stood at {}", booked, counted));
  return Raise(shop.stores, key, booked);
}

std::string NextIndex(Stores& stores, int mode, const std::string& key) {
  Action action(stores, "NextIndex");
  if (!action.Begun().Ok()) return {};
  const std::string criteria = "Tarih=" + sources::Quoted(key);
  KeepYear(stores, key, criteria);
  const std::string number = CountOn(stores, mode, key, criteria);
  return action.Finish().Ok() ? number : std::string();
}

DocumentId NextDocumentId(const Shop& shop, const DateTime& moment) {
  const std::string serial = NextIndex(shop.stores, 0, Format(moment, "yyyy"));
  const std::string padded = TerminalNumber(shop.terminalNo) + "0000000000";
  return {Format(serial, padded), Format(serial, padded + "0")};
}

std::string NextLineId(const Shop& shop, const DateTime& moment) {
  return NextDocumentId(shop, moment).id;
}

std::string NextLineId(const Shop& shop) {
  return NextLineId(shop, shop.clock.Now());
}

std::string DayBookTag(const Shop& shop) {
  return "WinKarvel" + PlainNumber(NumberOrZero(shop.terminalNo) - 1);
}

std::string MovementTag(const Shop& shop) {
  return "WinKarvel" + shop.terminalNo;
}

}  // namespace karvel
