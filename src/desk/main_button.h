// Command2, the desk's main button, and Command3 beside it where a line is corrected: what they read, and whether they can be pressed. No
// other file writes the two captions.
//
//   Command3    Command2       a press on Command2
//   Düzeltme    Tamam          corrects the line that was taken
//   Çıkış       Tamam          posts: money with the customer list in front, a line in a sale
//   any         Satır Sil      asks, and cancels the line
//   any         Bekleyin       nothing: a posting is at work
#pragma once

#include <array>
#include <functional>
#include <utility>

#include "desk/parts.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

// What a press can do.
enum class MainTask { PostSale, PostMoney, CorrectLine, CancelLine };

class MainButton {
 public:
  explicit MainButton(const DeskParts& parts);

  // Names who does a task. A task has one server: a second is a programmer's mistake, and throws std::logic_error at the start.
  // When `work` runs, the button is off and the scanner switched off.
  void Serve(MainTask task, std::function<void()> work);

  // Asked before a press does anything. Where it answers true the press was meant for it, and nothing is posted.
  void AskFirst(std::function<bool()> taken) { taken_ = std::move(taken); }

  // Runs a posting while the clerk is asked to wait; true when it is booked. Otherwise he was told why, and the button is on for another
  // try.
  bool Post(const std::function<Status()>& posting);
  // The same without asking him to wait.
  bool Try(const std::function<Status()>& work);

  // "Tamam": a line can be sold, or money taken, where there is an amount to post. A correction that was begun goes on.
  void OfferPosting();
  // The same, and a correction or deletion that was begun is given up.
  void GiveUpLine();
  void OfferDeletion(bool possible);
  void OfferCorrection();
  void EndCorrection();
  [[nodiscard]] bool OffersPosting() const;
  [[nodiscard]] bool OffersDeletion() const;

  void Allow(bool allowed);
  // While it reads "Tamam": on when there is a quantity or a payment to post, and a customer to post it to, or a number on the pad to take.
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
  std::function<bool()> taken_;
  Connections connections_;
};

}  // namespace karvel
