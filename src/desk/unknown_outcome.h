// What the clerk meets when the disk fails at the end of a posting. Where the posting stands all the same, it is told as done, and the
// quiet line warns of the disk. Where that can't be read, all buttons that post stay off, for a second tap might post twice; the desk looks
// again every second, and the quiet line says how it ended.
#pragma once

#include <functional>
#include <memory>

#include "books/shop.h"
#include "desk/held_off.h"
#include "desk/main_button.h"
#include "desk/parts.h"

namespace karvel {

// Shows what a book has written: now, or as soon as it is known that it stands. Gives why nothing can be shown yet, or ever.
template <typename Booked>
Status ShowBooked(FormState& form, const Outcome<Booked>& outcome, const std::function<void(const Booked&)>& show) {
  if (outcome) {
    show(*outcome);
    return {};
  }
  if (const auto& booked = outcome.error().ifItStands) form.WhenBooked = [show, booked] { show(*booked); };
  return outcome.error();
}
inline Status ShowBooked(FormState& form, const Status& outcome, const std::function<void()>& show) {
  if (outcome.Ok()) show();
  if (outcome.Kind() == ErrorKind::Unknown) form.WhenBooked = show;
  return outcome;
}

class UnknownOutcome {
 public:
  UnknownOutcome(const DeskParts& parts, MainButton& button);

 private:
  void Hold();
  void Release();
  void Look();
  [[nodiscard]] const char* Warning() const;
  void Warn();
  // The next thing that the quiet line says bears the warning too.
  void WarnBeside();

  Screen& screen_;
  FormState& form_;
  const World& world_;
  MainButton& button_;
  HeldOff held_;
  bool warns_ = false;
  std::shared_ptr<void> timer_;
  Connections connections_;
};

}  // namespace karvel
