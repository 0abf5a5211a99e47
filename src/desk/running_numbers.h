// The yearly running numbers of Index.mdb, and the line ids made of them.
//
// One row a year in Mdbindex holds two counters, Indexi and Serino: two characters of the year, then a count without padding:
// 261, 262, … 269, 2610. The year stays in front, so the numbers of two years never meet.
#pragma once

#include <string>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class RunningNumbers {
 public:
  explicit RunningNumbers(const DeskParts& parts);

  // Takes the next number of the year `key` ("2026"): of Indexi for mode 0, of Serino otherwise. An action of its own, unless one is open;
  // either way no two terminals ever get the same number.
  std::string NextIndex(int mode, const std::string& key);
  // The next DigerId: the terminal's digits, then the running number of this year padded to ten: 10000000261.
  std::string NextLineId();
  // "1" for terminal 01; the tag of the day book counts from 0 and is one less.
  [[nodiscard]] std::string TerminalNumber() const;
  // "WinKarvel0" on terminal 01: the day book's tag.
  [[nodiscard]] std::string DayBookTag() const;

 private:
  void FollowYear();  // IndexPrimary moved: IndexSecondary shows the counters of that year

  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
