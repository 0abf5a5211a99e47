#include "books/running_numbers.h"

#include "books/book_cursor.h"
#include "books/sources.h"
#include "books/steps.h"
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

}  // namespace

std::string NextIndex(Stores& stores, int mode, const std::string& key) {
  Action action(stores, "NextIndex");
  if (!action.Begun().Ok()) return {};
  const std::string criteria = "Tarih=" + sources::Quoted(key);
  KeepYear(stores, key, criteria);
  const std::string number = CountOn(stores, mode, key, criteria);
  return action.Finish().Ok() ? number : std::string();
}

std::string NextLineId(const Shop& shop, const DateTime& moment) {
  const std::string serial = NextIndex(shop.stores, 0, Format(moment, "yyyy"));
  return Format(serial, TerminalNumber(shop.terminalNo) + "0000000000");
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
