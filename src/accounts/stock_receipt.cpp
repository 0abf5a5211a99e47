#include "accounts/stock_receipt.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "desk/unknown_outcome.h"
#include "platform/clerk_message.h"
#include "platform/keyboard.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kName = 0, kRowPrice = 1, kTotalPrice = 2, kQuantity = 3, kTax = 4, kBarcode = 5;
constexpr int kTotal = 5;  // of Label12
constexpr int kClose = 0, kSave = 1;
const Steps step("StockReceipt");

// A quote in a name is a letter, and a name that has signs of a search in it is found by itself first. NoRecord where no card is meant.
Status FindSearched(Cursor& cards, const std::string& text) {
  const std::string whole = sources::Quoted(text), beginning = sources::Quoted(text + "*");
  Status found;
  for (const std::string& criteria : {"Barkod=" + whole, "StokAdi=" + whole, "StokAdi Like " + beginning, "StokKod Like " + beginning}) {
    found = cards.FindFirst(criteria);
    if (found.Kind() != ErrorKind::NoRecord && found.Kind() != ErrorKind::BadText) break;
  }
  return found;
}

bool HoldsNumber(int index) {
  return index >= kRowPrice && index <= kTax;
}

}  // namespace

StockReceipt::StockReceipt(const DeskParts& parts, CustomerInFront& customer)
    : shop_(parts.shop), screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customer_(customer) {
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
  // A digit typed after the "0" that stands there replaces it.
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
  const std::string text = Field(kName);
  const Status found = StandOnSearched(text);
  if (!found.Ok() && found.Kind() != ErrorKind::NoRecord && found.Kind() != ErrorKind::BadText) {
    Tell(screen_, ClerkMessage(found));
    return;
  }
  if (!found.Ok()) {
    // The text stays as the name of a new product.
    screen_.Text6(kBarcode).SetFocus();
    screen_.Text6(kBarcode).SetText("");
    for (const int index : {kRowPrice, kTotalPrice, kQuantity}) screen_.Text6(index).SetText("0");
    return;
  }
  const Cursor& card = cursors_.StokData;
  screen_.Text6(kName).SetText(card.Text("StokAdi"));
  screen_.Text6(kRowPrice).SetText(Format(card.Number("gFiyat"), form_.PriceFormat));
  screen_.Text6(kTotalPrice).SetText(Format(card.Number("Fiyat"), form_.PriceFormat));
  screen_.Text6(kTax).SetText(PlainNumber(card.Number("Kdv")));
  screen_.Text6(kBarcode).SetText(card.Text("Barkod"));
  screen_.Text6(kQuantity).SetFocus();
}

Status StockReceipt::StandOnSearched(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Items);
  Cursor& cards = cursors_.StokData;
  Status found = FindSearched(cards, text);
  if (found.Kind() != ErrorKind::NoRecord) return found;
  // The list is narrowed to a group or a name; what a supplier brings may be any item.
  Cursor all(world_.stores, "all cards");
  all.SetDatabaseName(cards.DatabaseName());
  step("all cards", all.Open(sources::kStock));
  found = FindSearched(all, text);
  if (!found.Ok()) return found;
  step("all cards", cards.Open(sources::kStock));
  return cards.MoveTo(all.CurrentKey());
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
  ShowRefusal(screen_, world_, received);
}

Receipt StockReceipt::ReadReceipt() const {
  Receipt receipt;
  receipt.supplierCode = customer_.Code();
  receipt.itemInFront = cursors_.StokData.CurrentKey();
  receipt.name = Field(kName);
  receipt.rowPrice = ReadNumber(Field(kRowPrice));
  receipt.cardPrice = NumberOrZero(Field(kTotalPrice));
  receipt.quantity = NumberOrZero(Field(kQuantity));
  receipt.tax = ReadNumber(Field(kTax));
  receipt.barcode = Field(kBarcode);
  receipt.amount = Total();
  return receipt;
}

Status StockReceipt::Receive() {
  // Where another was named meanwhile he comes in front, and the panel closes.
  if (!customer_.BringServed() || !screen_.StokAl.Visible()) {
    screen_.StokAl.SetVisible(false);
    return {};
  }
  const Receipt receipt = ReadReceipt();
  const Outcome<BookedReceipt> booked = BookReceipt(shop_, receipt);
  if (!booked && booked.error().Kind() == ErrorKind::NoRecord) {
    // Deleted at another terminal: the list shows who is left, and nobody is owed what nobody delivered.
    screen_.StokAl.SetVisible(false);
    Tell(screen_, "Kart başka bir terminalde silinmiş: " + customer_.Name());
    customer_.RefreshAndFollow();
    return {};
  }
  return ShowBooked<BookedReceipt>(form_, booked, [this, receipt](const BookedReceipt& received) { ShowReceipt(receipt, received); });
}

void StockReceipt::ShowReceipt(const Receipt& receipt, const BookedReceipt& received) {
  form_.CurrentLineId = received.id;
  ShowReceived(received.item);
  Tell(screen_, PlainNumber(receipt.quantity) + " × " + receipt.name + " " + Format(receipt.amount, "Standard") + " teslim alındı");
  for (int i = 0; i < screen_.Text6.Count(); ++i) screen_.Text6(i).SetText("");
}

// The stock list stands on the card that was raised, if it is in the list, and day book and ledger show the receipt.
void StockReceipt::ShowReceived(RowKey item) {
  {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    Cursor& cards = cursors_.StokData;
    step("refresh stock", cards.Refresh());
    step("received item", cards.MoveTo(item));
  }
  customer_.Follow();
}

double StockReceipt::Total() const {
  return NumberOrZero(screen_.Label12(kTotal).Caption());
}

}  // namespace karvel
