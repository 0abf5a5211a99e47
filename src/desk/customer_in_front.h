// The customer in front: the row on which the customer list stands, and all that follows it: the name in the field, his code and balance,
// which way his money goes, his day book, ledger and due dates, the overdue notice, and whether he collects at once.
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

// What came of bringing somebody in front.
enum class Brought {
  InFront,
  Nobody,   // no card is meant
  Refused,  // several are, or the files can't be read
};

class CustomerInFront {
 public:
  CustomerInFront(const DeskParts& parts, BalanceDisplay& balance, DayTotal& dayTotal, OverdueNotice& overdue);

  // Whether the list stands on a customer.
  [[nodiscard]] bool IsThere() const;
  [[nodiscard]] std::string Code() const { return list_.Text("CariKod"); }
  [[nodiscard]] std::string Name() const { return list_.Text("Unvan"); }
  // Whether the text is the name of whom the list stands on, blanks around it aside.
  [[nodiscard]] bool HasName(const std::string& text) const;
  // The key of his row; 0 when nobody is in front.
  [[nodiscard]] RowKey Key() const { return list_.CurrentKey(); }
  // His balance as the files have it now; as the list has it where they can't be read.
  [[nodiscard]] double StoredBalance() const;
  // Whether another terminal deleted his card since the list read it. False where the files can't be read.
  [[nodiscard]] bool IsGone() const;

  // Whether the list is that of the wholesalers.
  [[nodiscard]] bool ListsWholesalers() const;
  // Whether the list was narrowed by this piece of its source.
  [[nodiscard]] bool ListedBy(const std::string& condition) const;

  // Makes sure that the list stands on the one whom the screen names, before anything is booked on him: in a sale its customer, at rest the
  // bearer of the name in the field, of which a beginning will do where it means the row in front. Where the list stands elsewhere his card
  // comes in front, from another list if need be, and everything follows. False where the field is empty, where nobody bears the name or
  // more than one does, and where the files can't be read; then nothing moves, and the quiet line says why.
  bool BringServed();
  // The same for the bearer of this name and of this card number. A name that differs in the kind of an i is his, too.
  Brought BringNamed(const std::string& name);
  Brought BringCardNumber(const std::string& number);

  // Lets everything follow to the row on which the list stands, after it was reached while the followers kept still. Without a row, all of
  // it names nobody.
  void Follow();
  // The figure beside his name is his balance as the list has it now: after others may have changed it.
  void FollowBalance();
  // Moves the list to the card with this code; everything follows. Where the list lacks the card nothing changes.
  void BringInFront(const std::string& code);
  // Reads the list anew and moves it to the card with this code, or to the first row where the list lacks it; everything follows.
  void ReadListAnew(const std::string& code);
  // Moves the list to the card with this code while nothing follows. Reads nothing where it stands there already.
  void StandQuietlyOn(const std::string& code);
  // What stands beside his name once the field completed it: his code and balance, and no other's overdue notice. His books are opened, and
  // his own notice is shown, when the field is left.
  void ShowCompleted();
  // Gives the list another source and moves it to this row, or to the first where it lacks the row; everything follows.
  void ShowListAt(const std::string& source, RowKey row);
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

  // Somebody was brought in front from another list, which is now that of this group; "": of every group.
  Signal<const std::string&> listedGroup;

 private:
  void Followed();  // the list's current row changed
  void FollowFields();
  void FollowDirection();
  void FollowWalkIn();
  void ShowCodeAndBalance();
  // Who bears a name or number among all customers.
  struct Bearer {
    Status found;  // NoRecord: nobody; any other failure: not known
    std::string code;
    bool several = false;
  };
  [[nodiscard]] Bearer LookUp(const std::string& criteria) const;
  Brought Bring(const Bearer& bearer, const std::string& text);
  Brought BringCode(const std::string& code);
  Status BringInSale(const std::string& code);
  // In the list in front, or in one of those that together have every kind of customer. NoRecord when none has him.
  Status FindInAnyList(const std::string& code);

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
