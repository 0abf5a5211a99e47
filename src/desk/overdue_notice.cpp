#include "desk/overdue_notice.h"

#include "books/card_balance.h"
#include "books/sources.h"
#include "books/steps.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("OverdueNotice");
}

OverdueNotice::OverdueNotice(const DeskParts& parts) : screen_(parts.screen), cursors_(parts.cursors), world_(parts.world) {
  connections_ += screen_.Vadefrm.click.Connect([this] { Hide(); });
}

void OverdueNotice::Hide() {
  screen_.Vadefrm.SetVisible(false);
}

void OverdueNotice::ShowFor(const Cursor& customer) {
  Hide();
  Cursor& due = cursors_.VadeData;
  if (customer.Number("Bakiye") <= 0 || customer.Text("Hesap") != kDebitSide || !due.HasRows()) return;
  step("find due date", due.FindFirst("CariKod=" + sources::Quoted(customer.Text("CariKod"))));
  if (due.NoMatch()) return;
  const std::int64_t days = world_.clock.Now().DayNumber() - AsDate(due.Get(1)).DayNumber();
  screen_.Label15.SetCaption(PlainNumber(static_cast<double>(days)));
  if (days == 0) return;
  screen_.Label15.SetCaption(screen_.Label15.Caption() + " Gün");
  screen_.Vadefrm.SetVisible(true);
  screen_.Vadefrm.BringToFront();
}

}  // namespace karvel
