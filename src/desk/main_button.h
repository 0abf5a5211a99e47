// Command2, the desk's main button: what a press means is told by its own caption and the state around it.
#pragma once

#include <functional>

#include "desk/parts.h"
#include "desk/sale_posting.h"
#include "platform/signal.h"

namespace karvel {

class MainButton {
 public:
  MainButton(const DeskParts& parts, SalePosting& posting);

  // What the folders above bring. Each is one action of the clerk; its outcome is told to him here.
  std::function<Status()> postMoney;    // with the customer list in front
  std::function<Status()> correctLine;  // while Command3 reads "Düzeltme"
  std::function<Status()> cancelLine;   // "Satır Sil", after the clerk said yes

 private:
  void Pressed();
  void Dispatch();
  void AskAndCancel();
  void CorrectLine();
  [[nodiscard]] bool PayerInFront() const;
  void PostMoney();
  void PostSaleLine();
  void SetWaiting(bool waiting);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  SalePosting& posting_;
  Connections connections_;
};

}  // namespace karvel
