// Work on the main machine's stores: its server comes and goes while the desk stands, and other terminals write into the same lists. Looked
// after twice a second, and only while network work is on.
//
// What stays true:
// - A server that is gone is told once, in the quiet line. What the clerk has typed stays, lists keep the rows that they have, and what he
//   confirms is refused in plain words.
// - Nothing is asked of it until somebody listens at its place again; then the desk goes on by itself, without a tap.
// - What others wrote is shown within a second, with the row, the place and the fields of the clerk as they are.
#pragma once

#include <memory>
#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/start_up.h"
#include "platform/signal.h"

namespace karvel {

class MainMachine {
 public:
  MainMachine(const DeskParts& parts, StartUp& startUp, CustomerInFront& customer);

 private:
  void Follow();
  void Look();
  void ShowForeignChanges();
  void LookForServer();
  void OpenStores();
  void TellLost();
  void TellFound();
  void TellBesideOutcome(const std::string& text);

  Screen& screen_;
  FormState& form_;
  const World& world_;
  Cursor& customers_;
  StartUp& startUp_;
  CustomerInFront& customer_;
  std::shared_ptr<void> timer_;  // null: the terminal works on its own stores
  bool looking_ = false;
  int looks_ = 0;
  std::shared_ptr<bool> here_ = std::make_shared<bool>(true);  // what waits may come up when this is gone
  Connections connections_;
};

}  // namespace karvel
