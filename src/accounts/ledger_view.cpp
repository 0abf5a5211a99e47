#include "accounts/ledger_view.h"

#include "books/sources.h"
#include "books/steps.h"

namespace karvel {
namespace {
const Steps step("LedgerView");
}

LedgerView::LedgerView(const DeskParts& parts) : screen_(parts.screen), cursors_(parts.cursors) {
  connections_ += screen_.VzgCmd.click.Connect([this] { ShowAll(); });
}

void LedgerView::ShowAll() {
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(cursors_.CariData.Text("CariKod"))));
  screen_.Command5(1).SetEnabled(true);
  screen_.Command5(2).SetCaption("Tümünü Yazdır");
  screen_.Command1.Press();
}

}  // namespace karvel
