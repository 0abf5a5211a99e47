#include "desk/main_button.h"

#include "desk/refusal.h"
#include "platform/messages.h"
#include "platform/scanner.h"
#include "text/format.h"

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
    if (correctLine) ShowRefusal(parts_.world, correctLine());
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

void MainButton::PostMoney() {
  if (!postMoney) return;
  SetWaiting(true);
  const Status posted = postMoney();
  SetWaiting(false);
  if (posted.Ok()) return;
  parts_.screen.Command2.SetEnabled(true);
  ShowRefusal(parts_.world, posted);
}

void MainButton::PostSaleLine() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (NumberOrZero(screen.Text2(1).Text()) == 0) {
    // A payment that was typed in a sale opens the button too, but there is nothing to sell.
    screen.Text2(1).SetFocus();
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
