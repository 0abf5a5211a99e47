// Which printer the desk prints on. One is current; the statement printer, DökYazıcı, is it for everything but invoices.
//
// What stays true: outside the invoice's panel the statement printer is current, on the paper chosen for it. Copies chosen in the box count
// until another printer is chosen.
#pragma once

#include <string>
#include <utility>

#include "desk/parts.h"
#include "platform/messages.h"
#include "platform/signal.h"

namespace karvel {

class Printer;

// The paper (its number) and the orientation (1 upright, 2 turned) that these settings keep; where none was ever chosen, the printer's own
// paper, and its orientation stays.
void UseChosenPaper(Printer& printer, const Settings& settings, Setting size, Setting orientation);

class PrinterSelection {
 public:
  explicit PrinterSelection(const DeskParts& parts);

  // The desk opens: DökYazıcı is the printer chosen for statements, where none was the current one.
  void Begin();
  // Makes the first printer of exactly this name current (YazıcıSeç). False: there is none, and the current one stays.
  bool Select(const std::string& deviceName);
  // The printer of reports and of the Z report, Dökn, without one DökYazıcı, on its paper. False: it is gone, and the current one stays.
  bool SelectForReports();
  // The printer chosen for invoices, Prnn. False: none was chosen, or it is gone.
  bool SelectForInvoices();
  // The statement printer again, on its paper; one that is gone leaves the current one.
  void SelectForStatements();
  // Lets the clerk choose printer and paper (YazıcıDiyaloğu): for invoices while their panel is open, else for everything else.
  void Choose();

 private:
  struct Pool {
    Setting name, size, orientation;
  };
  bool SelectOnItsPaper(const std::string& deviceName);
  [[nodiscard]] Pool PoolInFront() const;
  void Preselect();
  void Use(const PrinterChoice& choice);
  void Keep(const PrinterChoice& choice);
  void ShowInUse();

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
