// The customer in front: the row on which the customer list stands, and all that follows it: the name in the field, his code and balance,
// his day book, ledger and due dates, the overdue notice, and whether he collects at once.
//
// The same list also shows stock cards and the day's turnover; then nobody is in front and nothing follows.
#pragma once

#include <string>

#include "desk/balance_display.h"
#include "desk/day_total.h"
#include "desk/overdue_notice.h"
#include "desk/parts.h"
#include "platform/signal.h"
#include "store/row.h"

namespace karvel {

class CustomerInFront {
 public:
  CustomerInFront(const DeskParts& parts, BalanceDisplay& balance, DayTotal& dayTotal, OverdueNotice& overdue);

  // The list stands on a row of customers.
  [[nodiscard]] bool IsThere() const;
  [[nodiscard]] std::string Code() const { return list_.Text("CariKod"); }
  [[nodiscard]] std::string Name() const { return list_.Text("Unvan"); }
  [[nodiscard]] bool HasName(const std::string& name) const { return IsThere() && Name() == name; }
  // The key of his row; 0 when nobody is in front.
  [[nodiscard]] RowKey Key() const { return list_.CurrentKey(); }
  // His balance as the files have it now; as the list has it where they can't be read.
  [[nodiscard]] double StoredBalance() const;
  // Whether another terminal deleted his card since the list read it. Not known is not gone.
  [[nodiscard]] bool IsGone() const;

  // Whether the list was narrowed by this piece of its source.
  [[nodiscard]] bool ListedBy(const std::string& condition) const;

  // Everything follows to the row on which the list stands, which was reached while the followers kept still; without rows all of it names
  // nobody.
  void Follow();
  // The list stands on the card with this code, and everything follows. Where the list lacks him it stays as it is, and so do they.
  void BringInFront(const std::string& code);
  // The list is read anew, and everything follows to the card with this code; to the first row where the list lacks him.
  void ReadListAnew(const std::string& code);
  // The list stands on the card with this code, and no field follows. Where it does already, nothing is read.
  void StandQuietlyOn(const std::string& code);
  // The first of this name comes in front and everything follows; false, and nothing has changed, where the list has none. The row that is
  // in front already is the one meant, also when another bears the same name.
  bool BringNamed(const std::string& name);
  // After the list could not be read: it is read anew and stands on the first of this name; false when it has none, or still can't be read.
  bool FindAnew(const std::string& name);
  // The list is read anew, and everything follows to its first row.
  void RefreshAndFollow();
  // The day book, ledger and due dates are his, also where the list is muted in purchase mode.
  void OpenBooks(const char* dayBookOrder = "Desc");
  void OpenDayBook(const char* order = "Desc");
  // The list with another source, while nothing follows.
  void ShowList(const std::string& source);
  // The list read anew, while nothing follows.
  void RefreshList();
  // To the row behind the one that was deleted, or the one before it; everything follows.
  void LeaveDeleted();

 private:
  void Followed();  // the list's current row changed
  void FollowFields();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  Cursor& list_;
  BalanceDisplay& balance_;
  DayTotal& dayTotal_;
  OverdueNotice& overdue_;
  Connections connections_;
};

}  // namespace karvel
