#include "desk/main_button.h"

#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/refusal.h"
#include "desk/sources.h"
#include "desk/stored_cards.h"
#include "platform/messages.h"
#include "platform/scanner.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

MainButton::MainButton(const DeskParts& parts, SalePosting& posting) : parts_(parts), posting_(posting) {
  parts_.screen.Command2.click.Connect([this] { Pressed(); });
}

void MainButton::Pressed() {
  Screen& screen = parts_.screen;
  // Off at once: a second tap must not post the line twice. The fields open it again.
  screen.Command2.SetEnabled(false);
  // A code that is read meanwhile waits: it must not move the item under a posting.
  parts_.world.scanner.SetEnabled(false);
  Dispatch();
  parts_.world.scanner.SetEnabled(true);
}

void MainButton::Dispatch() {
  Screen& screen = parts_.screen;
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
  const MessageAnswer answer =
      parts_.world.messages.MessageBox("Satır Silinecek Emimisiniz..?", "", MessageIcon::Stop, MessageButtons::YesNo);
  if (answer == MessageAnswer::Yes && cancelLine) ShowRefusal(parts_.world, cancelLine());
}

void MainButton::CorrectLine() {
  if (!correctLine) return;
  // A line of nothing is no correction; the quantity stands at 0 after every posting.
  if (NumberOrZero(parts_.screen.Text2(1).Text()) == 0) {
    parts_.screen.Text2(1).SetFocus();
    return;
  }
  ShowRefusal(parts_.world, correctLine());
}

void MainButton::PostMoney() {
  if (!postMoney) return;
  if (!PayerInFront()) {
    parts_.screen.Text1(0).SetFocus();
    parts_.screen.Command2.SetEnabled(true);  // the amount stays, and is taken when the customer stands
    return;
  }
  SetWaiting(true);
  const Status posted = postMoney();
  SetWaiting(false);
  if (posted.Ok()) return;
  parts_.screen.Command2.SetEnabled(true);
  ShowRefusal(parts_.world, posted);
}

// The money goes to the row in front, so there must be one, in the files too, and the name on the screen must be a customer's.
bool MainButton::PayerInFront() const {
  const Screen& screen = parts_.screen;
  Cursor& customers = parts_.cursors.CariData;
  if (!parts_.world.stores.Driver().IsOpen()) return true;  // the posting tells why nothing can be booked
  const std::string name = Trim(screen.Text1(0).Text());
  if (!ListsCustomers(screen) || name.empty()) return false;
  // After the store was away the list comes back with the customer that the screen still names.
  if (!customers.HasCurrent() && !(customers.Refresh().Ok() && customers.FindFirst("Unvan=" + sources::Quoted(name)).Ok())) return false;
  Cursor stored(parts_.world.stores, "payer");
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
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string item = Trim(screen.Text1(1).Text());
  if (item.empty() || !cursors.StokData.HasCurrent() || !NamesCard(item, cursors.StokData.Text("StokAdi"))) {
    screen.Text1(1).SetFocus();  // the screen names no item, or not the one in front
    return;
  }
  if (NumberOrZero(screen.Text2(1).Text()) == 0) {
    // A payment that was typed in a sale opens the button too, but there is nothing to sell.
    screen.Text2(1).SetFocus();
    return;
  }
  Cursor stored(world.stores, "sold");
  if (world.stores.Driver().IsOpen() && !OpenStoredItem(stored, cursors.StokData)) {
    screen.Text1(1).SetFocus();  // its card was deleted at another terminal
    return;
  }
  if (!IsNumeric(screen.Text2(0).Text())) {
    screen.Text2(0).SetFocus();  // the name of an item that was looked up there is no price
    return;
  }
  SetWaiting(true);
  // One number serves all lines of a slip; printing the slip empties it.
  if (form.SlipNo.empty()) form.SlipNo = settings.NextSlipNumber();
  const Status posted = posting_.PostLine();
  SetWaiting(false);
  if (!posted.Ok()) {
    screen.Command2.SetEnabled(true);
    ShowRefusal(world, posted);
    return;
  }
  if (screen.Label1(1).Caption() == " Barkod") screen.Text1(1).SetFocus();
}

void MainButton::SetWaiting(bool waiting) {
  parts_.screen.Command2.SetCaption(waiting ? "Bekleyin" : "Tamam");
  parts_.screen.SetBusy(waiting);
}

}  // namespace karvel
