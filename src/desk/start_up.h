// How the desk opens: a load stage that fixes the terminal, the data folder and the stores, and a first activation that applies the
// options and fills the lists.
#pragma once

#include "desk/customer_list.h"
#include "desk/options.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "desk/window_rule.h"

namespace karvel {

class StartUp {
 public:
  StartUp(const DeskParts& parts, CustomerList& customers, Options& options, PriceSelection& prices, WindowRule& windowRule);

  // False when this copy must end at once.
  bool Load();
  void Activate();
  // Once, in the first activation, with the options read, the lists filled and the grids' columns set, while the clerk is asked to wait:
  // the time for upkeep and for what was kept of the lists.
  Signal<> opening;

 private:
  void FixTerminal();
  void ReadCompanyFiles();
  void FixDataFolder();
  bool CopyTemplates();
  bool OpenStores();
  void KeepTerminalGroup();
  void FillStockGroups();
  void SetSources();
  void RefreshAll();
  void ReadFormats();
  void WaitForConnection();
  void LayOutGrids();
  bool Refuse(const Status& status);  // tells the clerk; false

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  CustomerList& customers_;
  Options& options_;
  PriceSelection& prices_;
  WindowRule& windowRule_;
};

}  // namespace karvel
