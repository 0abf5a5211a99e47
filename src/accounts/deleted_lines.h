// The tick SilinenChk: the cancelled lines of all customers, in the place of the customer list, for those who know the password.
#pragma once

#include <string>

#include "accounts/use_passwords.h"
#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/group_list.h"
#include "desk/main_button.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DeletedLines {
 public:
  DeletedLines(const DeskParts& parts, UsePasswords& passwords, MainButton& button, CustomerInFront& customer, BalanceDisplay& figure,
               GroupList& groups);

 private:
  void Toggled();
  void Open();
  void Close();
  // What belongs to a sale or to the customer in front is out of reach while the lines are shown.
  void OpenDesk(bool open);

  Screen& screen_;
  Cursors& cursors_;
  UsePasswords& passwords_;
  MainButton& button_;
  CustomerInFront& customer_;
  BalanceDisplay& figure_;
  GroupList& groups_;
  std::string keptSource_;  // of HareketData; empty while the lines aren't shown
  bool stockGridShown_ = false;
  Connections connections_;
};

}  // namespace karvel
