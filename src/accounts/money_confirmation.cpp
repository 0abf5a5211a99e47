#include "accounts/money_confirmation.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "desk/quiet_line.h"
#include "desk/unknown_outcome.h"
#include "store/cursor.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

MoneyConfirmation::MoneyConfirmation(const DeskParts& parts, MainButton& button, CustomerInFront& customer)
    : shop_(parts.shop),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      button_(button),
      customer_(customer) {
  button.Serve(MainTask::PostMoney, [this] { Confirm(); });
}

void MoneyConfirmation::Confirm() {
  if (PayerInFront()) {
    button_.Post([this] { return WhereThere(PostMoneyMovement()); });
    return;
  }
  // An empty name is filled with that of the row in front, so that a second tap can't pay another.
  if (customer_.IsThere() && Trim(screen_.Text1(0).Text()).empty()) customer_.Follow();
  screen_.Text1(0).SetFocus();
  button_.FollowAmounts();  // an amount that stays is taken once the customer is right
}

Status MoneyConfirmation::WhereThere(const Status& posted) {
  if (posted.Kind() != ErrorKind::NoRecord) return posted;
  ShowLeft();
  return {};
}

// Deleted at another terminal: the list shows who is left, and a second tap must not take the money from him.
void MoneyConfirmation::ShowLeft() {
  Tell(screen_, "Kart başka bir terminalde silinmiş: " + Trim(screen_.Text1(0).Text()));
  customer_.RefreshAndFollow();
  screen_.Text2(2).SetText("0");
}

// The money goes to whom the screen names: he must be in front, and in the files too.
bool MoneyConfirmation::PayerInFront() {
  if (!world_.stores.IsOpen()) return true;  // the posting tells why nothing can be booked
  if (!ListsCustomers(screen_) || !customer_.BringServed()) return false;
  if (!customer_.IsGone()) return true;
  ShowLeft();
  return false;
}

MoneyMovement MoneyConfirmation::ReadMovement() const {
  MoneyMovement movement;
  movement.customerCode = customer_.Code();
  movement.customerName = screen_.Text1(0).Text();
  movement.amount = NumberOrZero(screen_.Text2(2).Text());
  movement.instrument = screen_.Label3.Caption();
  movement.direction = DirectionOnScreen(screen_);
  movement.inPanel = screen_.TahsilatFrame.Visible();
  const Cursor& item = cursors_.StokData;
  if (!AtRest(screen_)) movement.itemInFront = PaidItem{item.Text("StokKod"), item.Text("StokAdi"), item.Text("Birim")};
  return movement;
}

Status MoneyConfirmation::PostMoneyMovement() {
  const MoneyMovement movement = ReadMovement();
  return ShowBooked<BookedMoney>(form_, BookMoneyMovement(shop_, movement),
                                 [this, movement](const BookedMoney& booked) { ShowMovement(movement, booked.id); });
}

void MoneyConfirmation::ShowMovement(const MoneyMovement& movement, const std::string& id) {
  form_.CurrentLineId = id;
  customer_.ReadListAnew(movement.customerCode);
  screen_.Text2(2).SetText("0");
  button_.OfferPosting();
  const bool paidOut = movement.direction == MoneyDirection::Payment;
  Tell(screen_, Format(movement.amount, "Standard") + " " + movement.instrument + (paidOut ? " ödendi" : " alındı"));
}

}  // namespace karvel
