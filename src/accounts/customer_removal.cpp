#include "accounts/customer_removal.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/list_in_front.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "desk/unknown_outcome.h"
#include "platform/messages.h"

namespace karvel {
namespace {
const Steps step("CarSil");
}

CustomerRemoval::CustomerRemoval(const DeskParts& parts, CustomerInFront& customer)
    : shop_(parts.shop), screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customer_(customer) {
  connections_ += screen_.CarSil.click.Connect([this] { Remove(); });
}

void CustomerRemoval::Remove() {
  if (!ListsCustomers(screen_) || !customer_.BringServed()) return;
  // His own rows, whatever the ledger showed: in purchase mode it doesn't follow the list.
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(customer_.Code())));
  if (!cursors_.CariHarData.HasRows()) {
    AskAndDeleteCard();
    return;
  }
  screen_.SetBusy(true);
  const Status wiped = WipeHistory();
  screen_.SetBusy(false);
  ShowRefusal(screen_, world_, wiped);
}

void CustomerRemoval::AskAndDeleteCard() {
  const std::string name = customer_.Name();
  Tell(screen_, "Kartı silinecek: " + name);
  const MessageAnswer answer =
      world_.messages.MessageBox("Cari Kart Silinecek Emimisiniz..?", "", MessageIcon::Stop, MessageButtons::YesNo);
  if (answer != MessageAnswer::Yes) {
    Tell(screen_, "");
    return;
  }
  const Status deleted = DeleteCustomerCard(shop_, customer_.Key());
  if (deleted.Kind() == ErrorKind::NoRecord) {
    // Another terminal deleted it meanwhile, or posted to him: the list shows how it is now.
    customer_.ReadListAnew(customer_.Code());
    Tell(screen_, "Kartı silinmedi, başka bir terminalde değişmiş: " + name);
    return;
  }
  const Status shown = ShowBooked(form_, deleted, [this, name] {
    customer_.LeaveDeleted();
    Tell(screen_, "Kartı silindi: " + name);
  });
  ShowRefusal(screen_, world_, shown);
}

Status CustomerRemoval::WipeHistory() {
  const std::string name = customer_.Name();
  const Status wiped = WipeCustomer(shop_, customer_.Code());
  const auto show = [this, name] {
    ShowWiped();
    Tell(screen_, "Hareketleri silindi: " + name);
  };
  if (!wiped.Ok()) ShowWiped();
  const Status shown = ShowBooked(form_, wiped, show);
  return shown.Kind() == ErrorKind::NoRecord ? Status() : shown;
}

void CustomerRemoval::ShowWiped() {
  {
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    customer_.OpenDayBook();
  }
  step("movements", cursors_.StokHarData.Open("StokHareket"));
  step("refresh ledger", cursors_.CariHarData.Refresh());
  screen_.CariGrid.SetMarker(customer_.IsThere());
  customer_.Follow();
}

}  // namespace karvel
