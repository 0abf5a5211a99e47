// The purge of old movements: with "30 Gün Öncesini Sil" checked, a start on every thirtieth day of the year, 1 January among them, drops
// the ledger, stock and day-book rows that are thirty days old or older. The cards keep their sums.
//
// What stays true: the three books lose the same days, whole, or none does.
#pragma once

#include <string>

#include "desk/parts.h"
#include "platform/signal.h"
#include "text/date_time.h"

namespace karvel {

class Purge {
 public:
  Purge(const DeskParts& parts, Signal<>& opening);

  [[nodiscard]] static bool IsDue(const DateTime& day);
  // "Tarih<=#mm/dd/yyyy 23:59:59#": the rows that go on that day. A row without a date stays.
  [[nodiscard]] static std::string Filter(const DateTime& day);

 private:
  void Run();

  Screen& screen_;
  Cursors& cursors_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
