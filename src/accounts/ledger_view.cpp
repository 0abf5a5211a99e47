#include "accounts/ledger_view.h"

#include "desk/captions.h"

namespace karvel {
LedgerView::LedgerView(const DeskParts& parts, CustomerInFront& customer) : screen_(parts.screen), customer_(customer) {
  connections_ += screen_.VzgCmd.click.Connect([this] { ShowAll(); });
}

void LedgerView::ShowAll() {
  customer_.OpenDayBook();
  screen_.Command5(1).SetEnabled(true);
  screen_.Command5(2).SetCaption(caption::kPrintAll);
  screen_.Command1.Press();
}

}  // namespace karvel
