#include "desk/running_numbers.h"

#include <fmt/format.h>

#include "books/steps.h"
#include "platform/clock.h"
#include "settings/terminal.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

RunningNumbers::RunningNumbers(const DeskParts& parts) : form_(parts.form), cursors_(parts.cursors), world_(parts.world) {
  connections_ += cursors_.IndexPrimary.repositioned.Connect([this] { FollowYear(); });
}

void RunningNumbers::FollowYear() {
  const Cursor& primary = cursors_.IndexPrimary;
  if (!primary.HasRows()) return;
  Steps("FollowYear")("refresh", cursors_.IndexSecondary.Open("Select * From Mdbindex where Tarih='" + primary.Text("Tarih") + "'"));
}

std::string RunningNumbers::NextIndex(int mode, const std::string& key) {
  const Steps step("NextIndex");
  Cursor& primary = cursors_.IndexPrimary;
  Cursor& secondary = cursors_.IndexSecondary;
  const std::string criteria = "Tarih='" + key + "'";
  const char* const counted = mode == 0 ? "Indexi" : "Serino";
  const char* const other = mode == 0 ? "Serino" : "Indexi";

  Action action(world_.stores, "NextIndex");
  // 1. The year's own row.
  step("find year", primary.FindFirst(criteria));
  if (primary.NoMatch()) {
    step("add year", primary.AddNew());
    primary.Set("Tarih", key);
    step("update year", primary.Update());
    step("refresh years", primary.Refresh());
    step("find year", primary.FindFirst(criteria));
  }
  // 2. Its counters.
  step("find counters", secondary.FindFirst(criteria));
  std::string number;
  if (secondary.NoMatch()) {
    // 3. The first number of a year.
    const std::string year = RightLetters(key, 2);
    number = year + "1";
    step("add counters", secondary.AddNew());
    secondary.Set("Tarih", key);
    secondary.Set(counted, number);
    secondary.Set(other, year + "0");
  } else {
    // 4. The next one. Edit reads the counter under the lock, so no other terminal has it.
    step("edit counters", secondary.Edit());
    const std::string last = secondary.Text(counted);
    number = LeftLetters(last, 2) + PlainNumber(NumberOrZero(MidLetters(last, 2)) + 1);
    secondary.Set(counted, number);
  }
  // 5.
  step("update counters", secondary.Update());
  step("refresh years", primary.Refresh());
  step("commit", action.Finish());
  return number;
}

std::string RunningNumbers::NextLineId() {
  const std::string serial = NextIndex(0, Format(world_.clock.Now(), "yyyy"));
  return Format(serial, TerminalNumber() + "0000000000");
}

std::string RunningNumbers::TerminalNumber() const {
  return karvel::TerminalNumber(form_.TerminalNo);
}

std::string RunningNumbers::DayBookTag() const {
  return "WinKarvel" + PlainNumber(NumberOrZero(form_.TerminalNo) - 1);
}

}  // namespace karvel
