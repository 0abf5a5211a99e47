// The customer list at rest: what follows when its current row changes, and how the clerk finds a customer in it.
#pragma once

#include <string>

#include "desk/day_total.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class CustomerList {
 public:
  CustomerList(const DeskParts& parts, PriceSelection& prices, DayTotal& dayTotal);

  // Fills GurupCombo from GurupData: "Tüm Guruplar" and the groups, without the terminals' tags. Chooses nothing.
  void FillGroups();
  // Chooses an entry without the list following it.
  void ShowGroup(const std::string& group);
  // Adds the walk-in customer's card when there is none.
  void KeepWalkIn();
  // Name, balance, day book and due dates follow to the row in front, which was reached under a guard; without rows they name nobody.
  void FollowInFront();
  // Another stock list in a sale: the fields name the item in front, and nothing of it is sold yet.
  void ShowUnsoldItem();

 private:
  void Followed();  // CariData's current row changed
  void ShowOverdue();
  void GroupChosen();
  void CustomerGroupChosen();
  void KeepGroupForLater();
  void StockGroupChosen();
  void FlipGroupList();  // ComboCmd
  void Focused();
  void TextChanged();
  void KeyUp(const KeyEvent& event);
  void Character(CharacterEvent& event);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  PriceSelection& prices_;
  DayTotal& dayTotal_;
  bool showing_ = false;
  bool groupWaits_ = false;  // a group was chosen in a sale
  Connections connections_;
};

}  // namespace karvel
