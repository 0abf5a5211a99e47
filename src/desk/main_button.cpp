#include "desk/main_button.h"

#include "books/sources.h"
#include "books/stored_cards.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/refusal.h"
#include "platform/messages.h"
#include "platform/scanner.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

MainButton::MainButton(const DeskParts& parts, SalePosting& posting)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), settings_(parts.settings), world_(parts.world), posting_(posting) {
  connections_ += screen_.Command2.click.Connect([this] { Pressed(); });
}

void MainButton::Pressed() {
  Screen& screen = screen_;
  // Off at once: a second tap must not post the line twice. The fields open it again.
  screen.Command2.SetEnabled(false);
  // A code that is read meanwhile waits: it must not move the item under a posting.
  world_.scanner.SetEnabled(false);
  Dispatch();
  world_.scanner.SetEnabled(true);
}

void MainButton::Dispatch() {
  Screen& screen = screen_;
  if (screen.Command2.Caption() == "Satır Sil") {
    AskAndCancel();
  } else if (screen.Command3.Caption() == "Düzeltme") {
    CorrectLine();
  } else if (screen.CariGrid.Visible()) {
    PostMoney();
  } else {
    PostSaleLine();
  }
}

void MainButton::AskAndCancel() {
  const MessageAnswer answer = world_.messages.MessageBox("Satır Silinecek Emimisiniz..?", "", MessageIcon::Stop, MessageButtons::YesNo);
  if (answer == MessageAnswer::Yes && cancelLine) ShowRefusal(world_, cancelLine());
}

void MainButton::CorrectLine() {
  if (!correctLine) return;
  // A line of nothing is no correction; the quantity stands at 0 after every posting.
  if (NumberOrZero(screen_.Text2(1).Text()) == 0) {
    screen_.Text2(1).SetFocus();
    return;
  }
  ShowRefusal(world_, correctLine());
}

void MainButton::PostMoney() {
  if (!postMoney) return;
  if (!PayerInFront()) {
    screen_.Text1(0).SetFocus();
    screen_.Command2.SetEnabled(true);  // the amount stays, and is taken when the customer stands
    return;
  }
  SetWaiting(true);
  const Status posted = postMoney();
  SetWaiting(false);
  if (posted.Ok()) return;
  screen_.Command2.SetEnabled(true);
  ShowRefusal(world_, posted);
}

// The money goes to the row in front, so there must be one, in the files too, and the name on the screen must be a customer's.
bool MainButton::PayerInFront() const {
  const Screen& screen = screen_;
  Cursor& customers = cursors_.CariData;
  if (!world_.stores.Driver().IsOpen()) return true;  // the posting tells why nothing can be booked
  const std::string name = Trim(screen.Text1(0).Text());
  if (!ListsCustomers(screen) || name.empty()) return false;
  // After the store was away the list comes back with the customer that the screen still names.
  if (!customers.HasCurrent() && !(customers.Refresh().Ok() && customers.FindFirst("Unvan=" + sources::Quoted(name)).Ok())) return false;
  Cursor stored(world_.stores, "payer");
  if (!OpenStoredCustomer(stored, customers)) {
    customers.Refresh().Ignore();  // deleted at another terminal: the list shows who is left
    return false;
  }
  if (NamesCard(name, customers.Text("Unvan"))) return true;
  // A list of all cards can stand on a money account: what a customer pays is not paid by the till.
  if (customers.Text("CariKod").starts_with('=')) return false;
  return stored.Open("Select * From CariKartlar Where Unvan=" + sources::Quoted(name)).Ok() && stored.HasRows();
}

void MainButton::PostSaleLine() {
  const std::string item = Trim(screen_.Text1(1).Text());
  if (item.empty() || !cursors_.StokData.HasCurrent() || !NamesCard(item, cursors_.StokData.Text("StokAdi"))) {
    screen_.Text1(1).SetFocus();  // the screen_ names no item, or not the one in front
    return;
  }
  if (NumberOrZero(screen_.Text2(1).Text()) == 0) {
    // A payment that was typed in a sale opens the button too, but there is nothing to sell.
    screen_.Text2(1).SetFocus();
    return;
  }
  Cursor stored(world_.stores, "sold");
  if (world_.stores.Driver().IsOpen() && !OpenStoredItem(stored, cursors_.StokData)) {
    screen_.Text1(1).SetFocus();  // its card was deleted at another terminal
    return;
  }
  if (!IsNumeric(screen_.Text2(0).Text())) {
    screen_.Text2(0).SetFocus();  // the name of an item that was looked up there is no price
    return;
  }
  SetWaiting(true);
  // One number serves all lines of a slip; printing the slip empties it.
  if (form_.SlipNo.empty()) form_.SlipNo = settings_.NextSlipNumber();
  const Status posted = posting_.PostLine();
  SetWaiting(false);
  if (!posted.Ok()) {
    screen_.Command2.SetEnabled(true);
    ShowRefusal(world_, posted);
    return;
  }
  if (screen_.Label1(1).Caption() == " Barkod") screen_.Text1(1).SetFocus();
}

void MainButton::SetWaiting(bool waiting) {
  screen_.Command2.SetCaption(waiting ? "Bekleyin" : "Tamam");
  screen_.SetBusy(waiting);
}

}  // namespace karvel
