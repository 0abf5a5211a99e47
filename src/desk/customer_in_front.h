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

  // Whether the list stands on a customer.
  [[nodiscard]] bool IsThere() const;
  [[nodiscard]] std::string Code() const { return list_.Text("CariKod"); }
  [[nodiscard]] std::string Name() const { return list_.Text("Unvan"); }
  [[nodiscard]] bool HasName(const std::string& name) const { return IsThere() && Name() == name; }
  // The key of his row; 0 when nobody is in front.
  [[nodiscard]] RowKey Key() const { return list_.CurrentKey(); }
  // His balance as the files have it now; as the list has it where they can't be read.
  [[nodiscard]] double StoredBalance() const;
  // Whether another terminal deleted his card since the list read it. False where the files can't be read.
  [[nodiscard]] bool IsGone() const;

  // Whether the list was narrowed by this piece of its source.
  [[nodiscard]] bool ListedBy(const std::string& condition) const;

  // Lets everything follow to the row on which the list stands, after it was reached while the followers kept still. Without a row, all of
  // it names nobody.
  void Follow();
  // Moves the list to the card with this code; everything follows. Where the list lacks the card nothing changes.
  void BringInFront(const std::string& code);
  // Reads the list anew and moves it to the card with this code, or to the first row where the list lacks it; everything follows.
  void ReadListAnew(const std::string& code);
  // Moves the list to the card with this code while nothing follows. Reads nothing where it stands there already.
  void StandQuietlyOn(const std::string& code);
  // Brings the first customer of this name in front; everything follows. False, and nothing changes, where the list has none. Where the row
  // in front bears the name it is the one meant, even if another bears it too.
  bool BringNamed(const std::string& name);
  // For a list that could not be read: reads it anew and moves to the first customer of this name. False where there is none, or where it
  // still can't be read.
  bool FindAnew(const std::string& name);
  // Reads the list anew; everything follows to its first row.
  void RefreshAndFollow();
  // Opens his day book, ledger and due dates, also in purchase mode, where they don't follow the list. The order of the day book, by date,
  // is "Asc" or "Desc".
  void OpenBooks(const char* dayBookOrder = "Desc");
  void OpenDayBook(const char* order = "Desc");
  // Gives the list another source while nothing follows.
  void ShowList(const std::string& source);
  // Reads the list anew while nothing follows.
  void RefreshList();
  // After his row was deleted: moves to the next one, or to the one before where his was the last; everything follows.
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
