// The desk: the screen's state, the stores' cursors, and the features of this folder connected to them. What stands above it, accounts/ and
// exchange/, is built on a desk and reaches it through the parts below.
//
// Order of life: construct, Load (false: end at once), show the window, Activate at each activation of the window, CloseRequested.
#pragma once

#include <memory>
#include <string>

#include "desk/cursors.h"
#include "desk/form_state.h"
#include "desk/parts.h"
#include "desk/screen.h"
#include "desk/world.h"

namespace karvel {

class BalanceDisplay;
class CustomerInFront;
class DayTotal;
class GroupList;
class MainButton;
class OverdueNotice;
class PriceSelection;
class SaleConfirmation;

class Desk {
 public:
  Desk(const World& world, std::string title);
  ~Desk();

  // Fixes the terminal, the data folder and the stores. False when this copy must end at once (another copy of the terminal runs, or
  // the stores can't be opened and the clerk was told).
  bool Load();
  // The window came to the front. The first time it applies the options and fills the lists; later it does nothing.
  void Activate();
  // Opens the stores anew, where the settings now say that they lie. False where that can't be done, which the clerk was told.
  bool OpenStoresAnew();
  // The window's close request. Saves what is kept; true when the window may go.
  bool CloseRequested(bool byProgram);

  Screen screen;
  FormState form;
  Cursors cursors;
  [[nodiscard]] const std::string& Title() const { return title_; }

  // For the features that stand above this folder: what they are built on, and the features that they share.
  [[nodiscard]] const DeskParts& Parts() const;
  [[nodiscard]] BalanceDisplay& Balance() const;
  [[nodiscard]] CustomerInFront& Customer() const;
  [[nodiscard]] DayTotal& Totals() const;
  [[nodiscard]] MainButton& Button() const;
  [[nodiscard]] GroupList& Groups() const;
  [[nodiscard]] OverdueNotice& Overdue() const;
  [[nodiscard]] PriceSelection& Prices() const;
  [[nodiscard]] SaleConfirmation& Posting() const;
  // Raised once, during the first activation: options are read, and nothing is shown yet.
  [[nodiscard]] Signal<>& Upkeep() const;
  // Raised once, after it: options are read, lists filled and columns set, and the clerk is still asked to wait.
  [[nodiscard]] Signal<>& Opening() const;
  // Raised as the window closes: all is kept, and the clerk is asked to wait.
  [[nodiscard]] Signal<>& Closing() const;

 private:
  const World world_;
  const std::string title_;
  struct Features;
  std::unique_ptr<Features> features_;
};

}  // namespace karvel
