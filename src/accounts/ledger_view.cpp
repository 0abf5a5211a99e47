#include "accounts/ledger_view.h"

#include "desk/sources.h"
#include "desk/steps.h"

namespace karvel {
namespace {
const Steps step("LedgerView");
}

LedgerView::LedgerView(const DeskParts& parts) : parts_(parts) {
  parts_.screen.VzgCmd.click.Connect([this] { ShowAll(); });
}

void LedgerView::ShowAll() {
  auto& [screen, form, cursors, settings, world] = parts_;
  step("day book", cursors.HareketData.Open(sources::DayBookOf(cursors.CariData.Text("CariKod"))));
  screen.Command5(1).SetEnabled(true);
  screen.Command5(2).SetCaption("Tümünü Yazdır");
  screen.Command1.Press();
}

}  // namespace karvel
