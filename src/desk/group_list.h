// GurupCombo, the groups of customers or, when ComboCmd was flipped, of stock cards: choosing one narrows the list.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class GroupList {
 public:
  GroupList(const DeskParts& parts, PriceSelection& prices, CustomerInFront& customer);

  // Fills GurupCombo from GurupData: "Tüm Guruplar" and the groups, without the terminals' tags. Chooses nothing.
  void Fill();
  // Chooses the entry of this group, or the first where it is gone, while the list stays as it is.
  void Show(const std::string& group);
  // Every group of customers from now on, also at the next start; the list itself is the caller's.
  void ChooseAll();
  // The customer list is in front again after a sale or the deleted lines: shows the group that was chosen meanwhile, if one was.
  void ShowKept();

 private:
  void Chosen();
  void ShowCustomersOf(const std::string& group);
  void Keep(const std::string& customerGroup);
  void KeepForLater();
  void StockGroupChosen();
  void Flip();  // ComboCmd
  void FillUnread();
  [[nodiscard]] std::string GroupInForce() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  PriceSelection& prices_;
  CustomerInFront& customer_;
  bool showing_ = false;
  std::string listed_;   // the group whose customers are listed, under whatever groups stand in GurupCombo; "": that of the settings
  bool unread_ = false;  // the main machine went while the names were read
  bool waits_ = false;   // a group chosen in a sale, over the deleted lines or the turnover waits until they are left
  Connections connections_;
};

}  // namespace karvel
