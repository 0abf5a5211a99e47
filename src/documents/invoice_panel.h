// FatFrame: the panel in which a customer's sales of a day become an invoice. The lines are ticked in FatGrid; FatCmd(1) books and prints
// them, FatCmd(0) keeps the address on the customer's card and closes.
//
// Fat(0) number, (1) name, (2) and (3) address, (4) tax office, (5) tax number, (9) e-mail; (6) amount, (7) quantity, (8) price.
//
// What stays true: the panel is its customer's for as long as it is open. Nobody else comes in front meanwhile, and HareketData stands on
// his lines of the day.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

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
  void FollowAmount();  // Fat(6) and Fat(7)
  void DateChanged();   // FatDTPicker
  void PlainToggled();  // FatDüzChk
  void Select();        // shows the lines of the day, and tells what can be done with them
  void TellNext();
  void TurnLine();           // a tap in FatGrid
  void TurnAll(int column);  // a tap on a heading
  // Whether the ticked lines fit on the paper; the excess is told, and there is no FatCmd(1) as long as there is one.
  bool Fits();
  void Print();  // FatCmd(1)
  // Whether its total can be written in words, where the paper shows it so.
  [[nodiscard]] bool FitsIntoWords(const InvoiceOrder& order) const;
  Status Make(const InvoiceOrder& order);
  void ShowPrinted(const Invoice& invoice, bool plain);
  void Remember(const Invoice& invoice, bool printed);
  void ShowNumber();  // in Fat(0), as FatDüzChk says
  void Refuse(const Status& why);
  void Warn(const std::string& words);
  void Leave();  // FatCmd(0)
  void Close();
  // False where it could not be kept and may be at the next try, which is told.
  bool KeepsAddress();
  void Closed();  // FatFrame is hidden, by whatever way
  [[nodiscard]] InvoiceOrder ReadOrder(const std::string& number) const;
  [[nodiscard]] std::optional<std::string> ReadNumber();  // Fat(0); what is no number is told
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
  InvoiceDay day_;                                             // whose lines of which day are shown
  CustomerAddress address_;                                    // as the card has it, as far as the panel knows
  std::optional<CustomerAddress> refused_;                     // the one that the card did not take at the last try
  std::string offered_;                                        // the number that came next when the panel was opened
  std::map<std::string, std::vector<std::string>> unprinted_;  // numbers by CariKod that were booked and did not come out
  bool open_ = false;
  bool switching_ = false;  // date and tick are set by the panel itself
  bool byKey_ = false;      // what FatGrid hears comes from the keyboard
  HeldOff behind_;          // what would bring another customer or list in front
  Connections connections_;
};

}  // namespace karvel
