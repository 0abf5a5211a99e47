#include "accounts/customer_removal.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/refusal.h"
#include "platform/messages.h"

namespace karvel {
namespace {

const Steps step("CarSil");

void DeleteAll(Cursor& rows) {
  for (; rows.HasCurrent(); step("next row", rows.MoveNext())) step("delete row", rows.Delete());
}

}  // namespace

CustomerRemoval::CustomerRemoval(const DeskParts& parts, CustomerList& customers)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customers_(customers), item_(parts) {
  connections_ += screen_.CarSil.click.Connect([this] { Remove(); });
}

void CustomerRemoval::Remove() {
  const std::string code = cursors_.CariData.Text("CariKod");
  // His rows, whatever the cursor stood on: a list in purchase mode doesn't follow.
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(code)));
  if (!cursors_.CariHarData.HasRows()) {
    AskAndDeleteCard();
    return;
  }
  screen_.SetBusy(true);
  const Status wiped = WipeHistory(code);
  screen_.SetBusy(false);
  ShowRefusal(world_, wiped);
}

void CustomerRemoval::AskAndDeleteCard() {
  const MessageAnswer answer =
      world_.messages.MessageBox("Cari Kart Silinecek Emimisiniz..?", "", MessageIcon::Stop, MessageButtons::YesNo);
  if (answer != MessageAnswer::Yes) return;
  Cursor& card = cursors_.CariData;
  const Status deleted = card.Delete();
  step("delete card", deleted);
  if (deleted.Ok()) {
    step("next card", card.MoveNext());
    if (card.Eof()) step("previous card", card.MovePrevious());
    if (!card.HasCurrent()) customers_.FollowInFront();  // the last one's name and balance go with him
  }
  if (deleted.Kind() != ErrorKind::NoRecord) ShowRefusal(world_, deleted);
}

Status CustomerRemoval::WipeHistory(const std::string& code) {
  Action action(world_.stores, "CarSil");
  if (!action.Begun().Ok()) return action.Finish();
  // What another terminal posted while this one waited for its turn goes too.
  step("ledger", cursors_.CariHarData.Refresh());
  DeleteAll(cursors_.CariHarData);  // 1.
  ClearCard();                      // 2.
  // 3.
  Cursor& movement = cursors_.StokHarData;
  step("movements", movement.Open("Select * From StokHareket Where Carisi=" + sources::Quoted(code)));
  form_.RepositionGuard = 66;
  // 4. A row that was no sale stays as it is.
  for (; movement.HasCurrent(); step("next movement", movement.MoveNext()))
    if (movement.Text("GirisCikis") == "Satış") TakeBackSale();
  // 5. Cancelled lines go with the others.
  form_.RepositionGuard = 100;
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(code)));
  DeleteAll(cursors_.HareketData);
  const Status done = action.Finish();
  form_.RepositionGuard = 0;  // 6.
  step("movements", movement.Open("StokHareket"));
  step("refresh day book", cursors_.HareketData.Refresh());
  step("refresh ledger", cursors_.CariHarData.Refresh());
  screen_.CariGrid.SetMarker(cursors_.CariData.HasRows());  // 7.
  // What was shown of the wiped card is not so.
  if (!done.Ok()) step("customer in front", cursors_.CariData.MoveTo(cursors_.CariData.CurrentKey()));
  return done;
}

void CustomerRemoval::ClearCard() {
  Cursor& card = cursors_.CariData;
  step("edit card", card.Edit());
  for (const char* const field : {"Borc", "Alacak", "dBorc", "eBorc", "Bakiye", "dBakiye", "eBakiye"}) card.Set(field, 0);
  card.Set("Hesap", "Borç");
  step("update card", card.Update());
}

void CustomerRemoval::TakeBackSale() {
  Cursor& movement = cursors_.StokHarData;
  Cursor& card = item_.Find(movement.Text("Carisi"));
  // The customer's code serves as the item's: the stock is taken back only where an item has the code of the customer.
  if (EqualText(card.Text("StokKod"), movement.Text("Carisi"))) {
    step("edit stock card", card.Edit());
    const double out = card.Number("CikanMik") - movement.Number("Miktar");
    const double in = card.Number("GirenMik");
    card.Set("CikanMik", out);
    card.Set("CikanTutar", card.Number("CikanTutar") - movement.Number("Tutar"));
    card.Set("KalanB", in > out ? in - out : 0.0);
    card.Set("KalanA", in > out ? 0.0 : out - in);
    step("update stock card", card.Update());
  }
  step("delete movement", movement.Delete());
}

}  // namespace karvel
