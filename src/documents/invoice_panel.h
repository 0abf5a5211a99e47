// FatFrame: the panel in which a customer's sales of a day become an invoice. The lines are ticked in FatGrid; FatCmd(1) books and prints
// them, FatCmd(0) keeps the address on the customer's card and closes.
//
// Fat(0) number, (1) name, (2) and (3) address, (4) tax office, (5) tax number, (9) e-mail; (6) amount, (7) quantity, (8) price.
//
// What stays true: the panel is its customer's for as long as it is open. Nobody else comes in front meanwhile, and HareketData stands on
// his lines of the day.
#pragma once

#include <string>

#include "books/customer_cards.h"
#include "books/invoice.h"
#include "desk/customer_in_front.h"
#include "desk/held_off.h"
#include "desk/parts.h"
#include "documents/invoice_drawing.h"
#include "documents/printer_selection.h"
#include "platform/signal.h"

namespace karvel {

class InvoicePanel {
 public:
  InvoicePanel(const DeskParts& parts, CustomerInFront& customer, PrinterSelection& printers);

 private:
  void Open();  // Command4
  // The fields of his card, and the number that comes next. Why not, where something can't be read.
  Status Fill(const std::string& code);
  void Show();
  void FollowAmount();       // Fat(6) and Fat(7)
  void DateChanged();        // FatDTPicker
  void PlainToggled();       // FatDüzChk
  void Select();             // shows the lines of the day
  void TurnLine();           // a tap in FatGrid
  void TurnAll(int column);  // a tap on a heading
  // Whether the ticked lines fit on the paper; the excess is told.
  bool Fits();
  void Print();  // FatCmd(1)
  void ShowPrinted(const Invoice& invoice, bool plain);
  void Refuse(const Status& why);
  void Close();  // FatCmd(0)
  void KeepAddress();
  void Closed();  // FatFrame is hidden, by whatever way
  [[nodiscard]] InvoiceOrder ReadOrder() const;
  [[nodiscard]] CustomerAddress ReadAddress() const;
  [[nodiscard]] InvoiceAddress ReadPrinted() const;
  [[nodiscard]] const std::string& Field(int index) const { return screen_.Fat(index).Text(); }

  const DeskParts& parts_;
  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerInFront& customer_;
  PrinterSelection& printers_;
  InvoiceDay day_;           // whose lines of which day are shown
  CustomerAddress address_;  // as the card had it when the panel was opened
  bool open_ = false;
  bool switching_ = false;  // date and tick are set by the panel itself
  HeldOff behind_;          // what would bring another customer or list in front
  Connections connections_;
};

}  // namespace karvel
