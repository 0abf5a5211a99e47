// Command2, the desk's main button, and Command3 beside it where a line is corrected: what they read, and whether they can be pressed. The
// one place that writes the two captions.
//
//   Command3    Command2       a press on Command2
//   Düzeltme    Tamam          corrects the line that was taken
//   Çıkış       Tamam          posts: money with the customer list in front, a line in a sale
//   any         Satır Sil      asks, and cancels the line
//   any         Bekleyin       nothing: a posting is at work
#pragma once

#include <array>
#include <functional>

#include "desk/parts.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

// What a press can do.
enum class MainTask { PostSale, PostMoney, CorrectLine, CancelLine };

class MainButton {
 public:
  explicit MainButton(const DeskParts& parts);

  // Who does a task. Each has one: a second one is a mistake of the program, which std::logic_error tells at the start.
  // The button is off when it runs, and the scanner still.
  void Serve(MainTask task, std::function<void()> work);

  // Runs a posting with the clerk asked to wait; true when it is booked. Otherwise he was told why, and the button is open for another try.
  bool Post(const std::function<Status()>& posting);
  // The same for work that is told by no caption.
  bool Try(const std::function<Status()>& work);

  // A line to sell, or money to take. A correction that was begun goes on.
  void OfferPosting();
  // The same, and the correction or deletion that was begun is given up.
  void GiveUpLine();
  void OfferDeletion(bool possible);
  void OfferCorrection();
  void EndCorrection();
  [[nodiscard]] bool OffersPosting() const;
  [[nodiscard]] bool OffersDeletion() const;

  void Allow(bool allowed);
  // While "Tamam" stands: on when there is a quantity or a payment to post, and a customer to post it to.
  void FollowAmounts();
  void Press();
  void SetFocus();

 private:
  void Pressed();
  [[nodiscard]] MainTask TaskNow() const;
  void SetWaiting(bool waiting);

  Screen& screen_;
  FormState& form_;
  const World& world_;
  std::array<std::function<void()>, 4> tasks_;
  Connections connections_;
};

}  // namespace karvel
