#include "accounts/money_confirmation.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
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
    button_.Post([this] { return PostMoneyMovement(); });
    return;
  }
  screen_.Text1(0).SetFocus();
  button_.FollowAmounts();  // an amount that stays is taken once the customer is right
}

// The money goes to the row in front: there must be one, in the files too, and the name on the screen must be a customer's.
bool MoneyConfirmation::PayerInFront() {
  if (!world_.stores.IsOpen()) return true;  // the posting tells why nothing can be booked
  const std::string name = Trim(screen_.Text1(0).Text());
  if (!ListsCustomers(screen_) || name.empty()) return false;
  // After the stores were away the list comes back, on the customer that the screen still names.
  if (!customer_.IsThere() && !customer_.FindAnew(name)) return false;
  if (customer_.IsGone()) {
    // Deleted at another terminal: the list shows who is left, and a second tap must not take the money from him.
    customer_.RefreshAndFollow();
    screen_.Text2(2).SetText("0");
    return false;
  }
  if (NamesCard(name, customer_.Name())) return true;
  // A list of all cards can stand on a money account: what a customer pays is not paid by the till.
  if (customer_.Code().starts_with('=')) return false;
  Cursor named(world_.stores, "payer");
  named.SetDatabaseName(cursors_.CariHarData.DatabaseName());
  return named.Open("CariKartlar").Ok() && named.FindFirst("Unvan=" + sources::Quoted(name)).Kind() != ErrorKind::NoRecord;
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
  const auto booked = BookMoneyMovement(shop_, movement);
  if (!booked) return booked.error();
  form_.CurrentLineId = booked->id;
  customer_.ReadListAnew(movement.customerCode);
  screen_.Text2(2).SetText("0");
  button_.OfferPosting();
  return {};
}

}  // namespace karvel
