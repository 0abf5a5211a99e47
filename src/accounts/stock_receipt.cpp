#include "accounts/stock_receipt.h"

#include <utility>

#include "books/card_balance.h"
#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/refusal.h"
#include "platform/clock.h"
#include "platform/keyboard.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kName = 0, kRowPrice = 1, kTotalPrice = 2, kQuantity = 3, kTax = 4, kBarcode = 5;
constexpr int kTotal = 5;  // of Label12
constexpr int kClose = 0, kSave = 1;
const Steps step("Receive");

bool HoldsNumber(int index) {
  return index >= kRowPrice && index <= kTax;
}

}  // namespace

StockReceipt::StockReceipt(const DeskParts& parts, RunningNumbers& numbers)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), numbers_(numbers) {
  Screen& screen = screen_;
  for (int i = 0; i < screen.Text6.Count(); ++i) {
    Element& box = screen.Text6(i);
    connections_ += box.changed.Connect([this, i] { Changed(i); });
    connections_ += box.gotFocus.Connect([this, i, &box] {
      form_.ActiveFieldCode = static_cast<float>(i == kName ? 99 : 100 + i);
      box.SelectAll();
    });
    connections_ += box.character.Connect([this, i](CharacterEvent& event) { Character(i, event); });
  }
  screen.StokAlCmd(kSave).SetEnabled(false);
  connections_ += screen.StokAlCmd(kClose).click.Connect([&screen] { screen.StokAl.SetVisible(false); });
  connections_ += screen.StokAlCmd(kSave).click.Connect([this] { Save(); });
}

void StockReceipt::Changed(int index) {
  Screen& screen = screen_;
  const std::string& text = Field(index);
  const bool needsNumber = HoldsNumber(index) && index != kRowPrice;
  if (needsNumber && text.empty()) {
    screen.Text6(index).SetText("0");
    screen.Text6(index).CaretToEnd();
    return;
  }
  // A digit typed behind the standing "0" takes its place.
  if (HoldsNumber(index) && text.size() > 1 && text[0] == '0' && text[1] >= '0' && text[1] <= '9') {
    screen.Text6(index).SetText(text.substr(1));
    screen.Text6(index).CaretToEnd();
    return;
  }
  const double total = NumberOrZero(Field(kTotalPrice)) * NumberOrZero(Field(kQuantity));
  screen.Label12(kTotal).SetCaption(Format(total, form_.PriceFormat));
  screen.StokAlCmd(kSave).SetEnabled(Total() != 0);
}

void StockReceipt::Character(int index, CharacterEvent& event) {
  if (event.character == key::kEnter) {
    event.character = 0;
    if (index == kName) {
      Search();
    } else {
      world_.keyboard.Send(key::kTab);
    }
  } else if (event.character == '.' && HoldsNumber(index)) {
    event.character = ',';
  }
}

void StockReceipt::Search() {
  Cursor& cards = cursors_.StokData;
  const std::string text = Field(kName);
  form_.RepositionGuard = 66;
  step("find barcode", cards.FindFirst("Barkod='" + text + "'"));
  if (cards.NoMatch()) step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (cards.NoMatch()) step("find code", cards.FindFirst("StokKod Like '" + text + "*'"));
  if (cards.NoMatch()) {
    // The text stays as the name of a new product.
    screen_.Text6(kBarcode).SetFocus();
    screen_.Text6(kBarcode).SetText("");
    for (const int index : {kRowPrice, kTotalPrice, kQuantity}) screen_.Text6(index).SetText("0");
  } else {
    screen_.Text6(kName).SetText(cards.Text("StokAdi"));
    screen_.Text6(kRowPrice).SetText(Format(cards.Number("gFiyat"), form_.PriceFormat));
    screen_.Text6(kTotalPrice).SetText(Format(cards.Number("Fiyat"), form_.PriceFormat));
    screen_.Text6(kTax).SetText(PlainNumber(cards.Number("Kdv")));
    screen_.Text6(kBarcode).SetText(cards.Text("Barkod"));
    screen_.Text6(kQuantity).SetFocus();
  }
  form_.RepositionGuard = 0;
}

void StockReceipt::Save() {
  if (!IsNumeric(Field(kQuantity))) return;  // nothing can be booked, and the panel stays
  if (Trim(Field(kName)).empty() && NumberOrZero(Field(kQuantity)) != 0) {
    screen_.Text6(kName).SetFocus();  // a card without a name would never be found again
    return;
  }
  if (NumberOrZero(Field(kQuantity)) == 0) {
    screen_.StokAl.SetVisible(false);
    return;
  }
  screen_.SetBusy(true);
  const Status received = Receive();
  screen_.SetBusy(false);
  ShowRefusal(world_, received);
}

Status StockReceipt::Receive() {
  Action action(world_.stores, "Receive");
  if (!action.Begun().Ok()) return action.Finish();
  Cursor supplier(world_.stores, "supplier");
  if (!OpenStoredCustomer(supplier, cursors_.CariData)) {
    // Deleted at another terminal: the list shows who is left, and nobody is owed what nobody delivered.
    screen_.StokAl.SetVisible(false);
    step("refresh suppliers", cursors_.CariData.Refresh());
    return action.Finish();
  }
  const std::string lineBefore = form_.CurrentLineId;
  form_.RepositionGuard = 66;  // 1.
  RaiseStockCard();            // 2. to 4.
  StandOnCard();               // 5.
  form_.RepositionGuard = 0;
  CreditSupplier();                             // 6.
  form_.CurrentLineId = numbers_.NextLineId();  // 7.
  BookMovement();                               // 8.
  BookLedger();                                 // 9.
  BookDay();                                    // 10.
  const Status done = action.Finish();
  if (!narrowed_.empty()) {
    form_.RepositionGuard = 66;
    step("stock list", cursors_.StokData.Open(std::exchange(narrowed_, {})));
  }
  form_.RepositionGuard = 0;  // 11.
  if (!done.Ok()) {
    form_.CurrentLineId = lineBefore;
    form_.RepositionGuard = 66;
    StandOnCard();
    form_.RepositionGuard = 0;
    return done;
  }
  for (int i = 0; i < screen_.Text6.Count(); ++i) screen_.Text6(i).SetText("");
  return done;
}

void StockReceipt::RaiseStockCard() {
  Cursor& card = cursors_.StokData;
  // Only the card in front is compared, letter by letter: a name that differs makes a new card.
  if (card.HasRows() && card.Text("StokAdi") == Field(kName)) {
    step("edit stock card", card.Edit());
  } else {
    step("add stock card", card.AddNew());
    card.Set("StokKod", LeftLetters(Field(kName), 20));
    card.Set("StokAdi", Field(kName));
  }
  card.Set("Kdv", Field(kTax));
  card.Set("Barkod", Field(kBarcode));
  card.Set("Fiyat", Field(kTotalPrice));
  card.Set("gFiyat", Field(kRowPrice));
  card.Set("GirenMik", card.Number("GirenMik") + NumberOrZero(Field(kQuantity)));
  card.Set("GirenTutar", card.Number("GirenTutar") + Total());
  // Unlike everywhere else: not rounded, and the other side keeps what it had.
  const double out = card.Number("CikanMik");
  const double in = card.Number("GirenMik");
  if (out > in) {
    card.Set("KalanA", out - in);
  } else {
    card.Set("KalanB", in - out);
  }
  step("update stock card", card.Update());
}

void StockReceipt::StandOnCard() {
  Cursor& card = cursors_.StokData;
  const std::string byName = "StokAdi=" + sources::Quoted(Field(kName));
  step("refresh stock", card.Refresh());
  step("find stock card", card.FindFirst(byName));
  if (!card.NoMatch() || card.RecordSource() == sources::kStock) return;
  // A narrowed list doesn't hold the new card; without it the rows would name another one.
  narrowed_ = card.RecordSource();
  step("all stock", card.Open(sources::kStock));
  step("find stock card", card.FindFirst(byName));
}

void StockReceipt::CreditSupplier() {
  Cursor& supplier = cursors_.CariData;
  step("edit supplier's card", supplier.Edit());
  supplier.Set("Alacak", supplier.Number("Alacak") + Total());
  ApplyBalance(supplier);
  step("update supplier's card", supplier.Update());
}

void StockReceipt::BookMovement() {
  Cursor& movement = cursors_.StokHarData;
  const std::string& name = Field(kName);
  if (movement.HasRows()) step("last movement", movement.MoveLast());
  step("add movement", movement.AddNew());
  movement.Set("StokHarKod", LeftLetters(name, 20));
  movement.Set("Tarih", world_.clock.Now());
  movement.Set("Aciklama", name + " Alış");
  movement.Set("GirisCikis", "Alış");
  movement.Set("Nerde", "C");
  movement.Set("StokAd", name);
  movement.Set("Fiyat", Field(kRowPrice));
  movement.Set("Miktar", Field(kQuantity));
  movement.Set("Tutar", Total());
  movement.Set("DigerId", form_.CurrentLineId);
  movement.Set("Kdv", Field(kTax));
  step("update movement", movement.Update());
}

void StockReceipt::BookLedger() {
  Cursor& ledger = cursors_.CariHarData;
  const Cursor& card = cursors_.StokData;
  if (ledger.HasRows()) step("last ledger row", ledger.MoveLast());
  step("add ledger row", ledger.AddNew());
  ledger.Set("cariharkod", cursors_.CariData.Text("CariKod"));
  ledger.Set("Tarih", world_.clock.Now());
  ledger.Set("Aciklama", card.Text("StokAdi") + " Alış");
  ledger.Set("Bilgi1", card.Text("StokKod"));
  ledger.Set("Bilgi2", card.Text("StokAdi"));
  ledger.Set("Birim", card.Text("Birim"));
  ledger.Set("Alacak", Total());
  ledger.Set("Carisi", card.Text("StokKod"));
  ledger.Set("Unvan", card.Text("StokAdi"));
  ledger.Set("DigerId", form_.CurrentLineId);
  ledger.Set("Nerde", "S");
  ledger.Set("Miktar", Field(kQuantity));
  ledger.Set("Fiyat", Field(kRowPrice));
  ledger.Set("yeni", 1);
  step("update ledger row", ledger.Update());
}

void StockReceipt::BookDay() {
  Cursor& day = cursors_.HareketData;
  const Cursor& card = cursors_.StokData;
  step("add day-book row", day.AddNew());
  day.Set("CariKod", cursors_.CariData.Text("CariKod"));
  day.Set("StokKod", card.Text("StokKod"));
  day.Set("CariAd", cursors_.CariData.Text("Unvan"));
  day.Set("StokAd", card.Text("StokAdi"));
  day.Set("Fiyat", Field(kRowPrice));
  day.Set("Miktar", Field(kQuantity));
  day.Set("Tutar", Total());
  day.Set("Tarih", world_.clock.Now());
  day.Set("DigerId", form_.CurrentLineId);
  day.Set("Birim", card.Text("Birim"));
  day.Set("yeni", 1);
  day.Set("Durum", "Alış");
  day.Set("Gurup", card.Text("Gurup"));
  day.Set("Plasiyer", numbers_.DayBookTag());
  day.Set("tGurup", numbers_.DayBookTag());
  step("update day-book row", day.Update());
}

double StockReceipt::Total() const {
  return NumberOrZero(screen_.Label12(kTotal).Caption());
}

}  // namespace karvel
