// CiroFrm: what was sold, collected and returned on a day or in a span of days, with the lines of the day book in the customers' list.
//
// What stays true: while CiroChk is ticked CariData stands on the day book, and nothing can be posted. The figures leave the wholesalers
// out and include every other group, whatever group the list is narrowed to.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/group_list.h"
#include "desk/main_button.h"
#include "desk/overdue_notice.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class TurnoverPanel {
 public:
  TurnoverPanel(const DeskParts& parts, MainButton& button, CustomerInFront& customer, OverdueNotice& overdue, GroupList& groups);

 private:
  void Toggled();  // CiroChk
  void Open();
  void Close();
  void DateChanged();
  void GroupChosen();
  void OpenDesk(bool open);
  void ShowList();
  void ShowCustomers();
  // On opening the collections are summed by Tahsilat; after a change of date all sums are of Tutar. The two differ on purpose.
  void ShowFigures(const std::string& collectedField);
  [[nodiscard]] std::string ChosenGroup() const;  // "" while every group is listed
  void ChooseReport(int index);                   // CiroYaz

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  MainButton& button_;
  CustomerInFront& customer_;
  OverdueNotice& overdue_;
  GroupList& groups_;
  std::string dates_;  // condition on Tarih
  bool open_ = false;
  bool opening_ = false;  // the pickers are only being preset
  Connections connections_;
};

}  // namespace karvel
