// How the desk opens: a load stage that fixes the terminal, the data folder and the stores, and a first activation that applies the
// options and fills the lists.
#pragma once

#include <optional>

#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/desk_font.h"
#include "desk/fixed_window.h"
#include "desk/group_list.h"
#include "desk/main_button.h"
#include "desk/options.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "desk/stock_frame.h"

namespace karvel {

class StartUp {
 public:
  // What is made ready at the start.
  struct Features {
    CustomerInFront& customer;
    BalanceDisplay& balance;
    MainButton& button;
    GroupList& groups;
    PriceSelection& prices;
    Options& options;
    FixedWindow& window;
    DeskFont& font;
    StockFrame& stockFrame;
  };
  StartUp(const DeskParts& parts, const Features& features);

  // False when this copy must end at once.
  bool Load();
  void Activate();
  // Opens the stores anew, where the settings now say that they lie, and fills the lists from them. False where that can't be done: the
  // clerk was told, and no store is open. A main machine whose stores can't be opened is told too, but the desk stands without them, for
  // the machine may come, or the clerk switch network work off.
  bool OpenAnew();
  // Raised when it is settled where the stores lie, before they are opened.
  Signal<> placeChosen;
  // Raised once, during the first activation, when the options are read and the lists are not shown yet: the time to clear away what is
  // old.
  Signal<> upkeep;
  // Raised once, after it: options are read, lists filled and columns set, and the clerk is still asked to wait. The
  // time for the column layouts that were kept.
  Signal<> opening;

 private:
  bool IsOnlyCopy();
  bool ReadySettings();
  void FixTerminal();
  void ReadCompanyFiles();
  bool OpenData();
  void FixDataFolder();
  bool LayFiles();
  void TellShut(const Status& opened);
  bool MayBeginEmpty(const std::string& missing);
  bool MayBeginAnew(const std::string& left);
  bool CopyTemplates();
  bool OpenStores();
  void ReadData();
  void ShowData();
  void FillStockGroups();
  std::string KeptGroup(Setting setting, const char* file);
  void SetSources();
  void RefreshAll();
  void ReadFormats();
  void WaitForConnection();
  void FillLists();
  void ShowGroups();
  void ShowCustomerInFront();
  void Complete();
  bool Refuse(const std::string& what, const Status& status);  // tells the clerk what failed and why; false

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  const Features features_;
  // From the first read until the lists are filled; a main machine that goes meanwhile leaves them to be filled when it is back.
  bool filling_ = true, incomplete_ = false;
  std::optional<Muted> opening_;  // until the desk is open nobody is in front
  Connections connections_;
};

}  // namespace karvel
