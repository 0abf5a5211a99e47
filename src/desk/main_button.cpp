#include "desk/main_button.h"

#include <stdexcept>

#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "desk/refusal.h"
#include "platform/scanner.h"
#include "store/stores.h"
#include "text/format.h"
#include "touch/number_pad.h"

namespace karvel {

MainButton::MainButton(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), world_(parts.world) {
  connections_ += screen_.Command2.click.Connect([this] { Pressed(); });
}

void MainButton::Serve(MainTask task, std::function<void()> work) {
  auto& served = tasks_[static_cast<std::size_t>(task)];
  if (served) throw std::logic_error("a task of the main button is served twice");
  served = std::move(work);
}

void MainButton::Pressed() {
  if (taken_ && taken_()) return;
  // Its lists may be empty by now, and he is told why nothing is booked, not that he chose nobody.
  if (world_.stores.IsServerAway()) return ShowRefusal(screen_, world_, Stores::Away());
  // Off at once: a second tap must not post the line twice. The fields open it again.
  Allow(false);
  // A code that is read meanwhile waits: it must not move the item under a posting.
  world_.scanner.SetEnabled(false);
  if (const auto& work = tasks_[static_cast<std::size_t>(TaskNow())]) work();
  world_.scanner.SetEnabled(true);
}

MainTask MainButton::TaskNow() const {
  if (OffersDeletion()) return MainTask::CancelLine;
  if (CorrectionOffered(screen_)) return MainTask::CorrectLine;
  return AtRest(screen_) ? MainTask::PostMoney : MainTask::PostSale;
}

bool MainButton::Post(const std::function<Status()>& posting) {
  SetWaiting(true);
  const Status posted = posting();
  SetWaiting(false);
  FollowAmounts();  // what is left to post, such as a payment typed in a sale
  return Try([&] { return posted; });
}

bool MainButton::Try(const std::function<Status()>& work) {
  const Status done = work();
  if (done.Ok()) return true;
  Allow(true);
  ShowRefusal(screen_, world_, done);
  return false;
}

void MainButton::SetWaiting(bool waiting) {
  screen_.Command2.SetCaption(waiting ? caption::kWait : caption::kConfirm);
  screen_.SetBusy(waiting);
}

void MainButton::OfferPosting() {
  screen_.Command2.SetCaption(caption::kConfirm);
  FollowAmounts();
}

void MainButton::GiveUpLine() {
  EndCorrection();
  OfferPosting();
}

void MainButton::OfferDeletion(bool possible) {
  screen_.Command2.SetCaption(caption::kDeleteLine);
  Allow(possible);
}

void MainButton::OfferCorrection() {
  screen_.Command3.SetCaption(caption::kCorrect);
}

void MainButton::EndCorrection() {
  form_.EditLineId.clear();
  screen_.Command3.SetCaption(caption::kExit);
}

bool MainButton::OffersPosting() const {
  return screen_.Command2.Caption() == caption::kConfirm;
}

bool MainButton::OffersDeletion() const {
  return screen_.Command2.Caption() == caption::kDeleteLine;
}

void MainButton::Allow(bool allowed) {
  screen_.Command2.SetEnabled(allowed);
}

void MainButton::FollowAmounts() {
  if (!OffersPosting()) return;
  // While the list shows stock, the day's turnover or deleted lines there is no customer to post to.
  const bool customers = ListsCustomers(screen_) && !screen_.SilinenChk.Checked();
  const bool amounts = NumberOrZero(screen_.Text2(1).Text()) + NumberOrZero(screen_.Text2(2).Text()) != 0;
  const bool onPad = form_.PadOpen && number_pad::HoldsAnswer(screen_.Form3.Text1.Text());
  Allow(onPad || (customers && amounts));
}

void MainButton::Press() {
  screen_.Command2.Press();
}

void MainButton::SetFocus() {
  screen_.Command2.SetFocus();
}

}  // namespace karvel
