#include "desk/product_field.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/quiet_line.h"
#include "desk/screen_keyboard.h"
#include "desk/screen_pad.h"
#include "platform/clerk_message.h"
#include "platform/event_loop.h"
#include "platform/keyboard.h"
#include "platform/scanner.h"
#include "text/format.h"
#include "text/turkish.h"
#include "touch/turkish_case.h"

namespace karvel {
namespace {
const Steps step("ProductField");

}  // namespace

ProductField::ProductField(const DeskParts& parts, PriceSelection& prices, MainButton& button)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), prices_(prices), button_(button) {
  Element& field = screen_.Text1(1);
  connections_ += field.keyDown.Connect([this](const KeyEvent& event) {
    if (event.code == key::kEnter) EnterDown();
  });
  connections_ += field.character.Connect([this](CharacterEvent& event) {
    if (event.character == key::kEnter) {
      event.character = 0;
      EnterCharacter();
    } else {
      event.character = TürkçeBüyük(screen_.Text1(1).Text(), screen_.Text1(1).SelectionStart(), event.character);
    }
  });
  connections_ += field.changed.Connect([this] { TextChanged(); });
  connections_ += field.keyUp.Connect([this](const KeyEvent& event) { KeyUp(event); });
  connections_ += field.gotFocus.Connect([this] { Focused(); });
  connections_ += screen_.Label11.changed.Connect([this] { ScannedText(); });
  connections_ += screen_.TahsilatFrame.altered.Connect([this] {
    if (!codes_.empty()) EnterCodes();
  });
  connections_ += world_.scanner.codeRead.Connect([this](const std::string& code) { CodeRead(code); });
}

void ProductField::Focused() {
  if (form_.RepositionGuard.ItemsStill()) return;
  form_.ActiveFieldCode = 1;
  Element& field = screen_.Text1(1);
  const bool byBarcode = SearchesByBarcode(screen_);
  if (!byBarcode && field.Text().empty() && cursors_.StokData.HasRows()) NameItemInFront();
  // The next name or code, typed or scanned, takes the place of what stands there.
  field.SelectAll();
}

void ProductField::NameItemInFront() {
  Cursor& cards = cursors_.StokData;
  if (NumberOrZero(screen_.Text2(0).Text()) == 0 && cards.HasCurrent()) {
    // An unknown code has set the price to 0, and the item must not go for nothing.
    const std::string quantity = screen_.Text2(1).Text();
    step("item in front", cards.MoveTo(cards.CurrentKey()));
    screen_.Text2(1).SetText(quantity);
  }
  screen_.Text1(1).SetText(cards.Text("StokAdi"));
}

void ProductField::EnterDown() {
  matched_ = false;
  CloseKeyboard(form_, screen_);  // what was typed on it is taken, so the prices follow again
  Cursor& cards = cursors_.StokData;
  const std::string text = screen_.Text1(1).Text();
  if (Trim(text).empty()) return;  // the second Enter of a scanner that ends codes with two signs would sell the card that has no barcode
  step("find barcode", cards.FindFirst("Barkod='" + text + "'"));
  matched_ = !cards.NoMatch();
  if (!matched_ && !FindName(text)) return;
  screen_.Text1(1).SetText(cards.Text("StokAdi"));
  screen_.Text2(1).SetText("1");
}

// Stands on the card that has the text, in the first of the columns in which there is one.
bool ProductField::FindIn(Cursor& among, Columns columns, const std::string& text) {
  for (const char* const column : columns)
    if (Found(among.FindFirst(std::string(column) + "='" + text + "'"))) return true;
  return false;
}

// A look-up that failed has found nothing, and what it looked for may be there all the same.
bool ProductField::Found(const Status& looked) {
  if (looked.Kind() != ErrorKind::NoRecord && looked.Kind() != ErrorKind::BadText && !looked.Ok()) fault_ = looked;
  return looked.Ok();
}

bool ProductField::FindName(const std::string& text) {
  Cursor& cards = cursors_.StokData;
  // The card in front is the one meant, even if another bears the same name.
  if (cards.HasCurrent() && cards.Text("StokAdi") == text) {
    // Its prices are worked out as if it had been found: the fields may show those of another item, or one that was stepped to.
    return cards.MoveTo(cards.CurrentKey()).Ok();
  }
  return Found(cards.FindFirst("StokAdi='" + text + "'"));
}

bool ProductField::FindCard(const std::string& text) {
  Cursor& cards = cursors_.StokData;
  if (FindIn(cards, {"Barkod", "StokKod"}, text) || FindName(text) || FindOutside({"Barkod", "StokKod", "StokAdi"}, text)) return true;
  // A code that was read into the serial numbers sells its item.
  Cursor& serials = cursors_.SeriNoData;
  if (!Found(serials.FindFirst("Barcode='" + text + "'"))) return false;
  const std::string code = ReplaceAll(serials.Text("StokKod"), "'", "''");
  if (!FindIn(cards, {"StokKod"}, code) && !FindOutside({"StokKod"}, code)) return false;
  form_.ScannedSerial = serials.Text("barcode");
  return true;
}

// The list is narrowed to a group or a name; what the customer lays on the counter is sold all the same.
bool ProductField::FindOutside(Columns columns, const std::string& text) {
  Cursor& cards = cursors_.StokData;
  if (cards.RecordSource() == sources::kStock) return false;
  Cursor all(world_.stores, "all cards");
  all.SetDatabaseName(cards.DatabaseName());
  step("all cards", all.Open(sources::kStock));
  if (!FindIn(all, columns, text)) return false;
  step("all cards", cards.Open(sources::kStock));
  step("found card", cards.MoveTo(all.CurrentKey()));
  screen_.Text2(1).SetText("1");
  return true;
}

void ProductField::EnterCharacter() {
  Element& field = screen_.Text1(1);
  const std::string entered = Trim(field.Text());
  if (entered.empty()) return;
  if (!TakeEntered()) {
    Tell(screen_, fault_.Ok() ? "Ürün bulunamadı: " + entered : ClerkMessage(fault_));
    return;
  }
  if (!screen_.SecimTamam.Checked()) {
    screen_.Text2(1).SetFocus();
    return;
  }
  screen_.Text2(1).SetText("1");  // each code is one piece, whatever quantity stood there
  button_.Press();
  if (field.HasFocus()) field.SelectAll();  // the next code takes the place of this name
}

bool ProductField::TakeEntered() {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Element& field = screen_.Text1(1);
  screen_.Text2(0).SetText("0");
  fault_ = {};
  // The card that the first pass found by its code stays: another may bear the same name.
  const bool found = (matched_ && field.Text() == cursors_.StokData.Text("StokAdi")) || FindCard(field.Text());
  matched_ = false;
  if (!found) {
    field.SetText("");
    return false;
  }
  button_.GiveUpLine();  // an item to sell ends a correction or a deletion that was begun
  field.SetText(cursors_.StokData.Text("StokAdi"));
  prices_.Offer(cursors_.StokData.Number("Fiyat"));
  return true;
}

bool ProductField::FindQuietly(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& cards = cursors_.StokData;
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  return !cards.NoMatch();
}

void ProductField::TextChanged() {
  const std::string& text = screen_.Text1(1).Text();
  if (!screen_.Text1(1).HasFocus() || screen_.Label1(1).Caption() != caption::kByName || Trim(text).empty() || text == "*") return;
  const Cursor& cards = cursors_.StokData;
  if (text == cards.Text("StokAdi")) return;  // the row in front is the one meant
  if (FindQuietly(text)) prices_.Offer(cards.Number("Fiyat"));
}

void ProductField::KeyUp(const KeyEvent& event) {
  Element& field = screen_.Text1(1);
  if (!IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  const Cursor& cards = cursors_.StokData;
  if (cards.HasCurrent() && cards.Text("StokAdi") == field.Text()) return;
  if (FindQuietly(field.Text()) && !form_.KeyboardOpen) Complete(field, cards.Text("StokAdi"));
}

void ProductField::CodeRead(const std::string& code) {
  // Codes wait in line: each is shown when the one before has been entered.
  codes_.push_back(code);
  EnterCodes();
}

Element& ProductField::CodeField() const {
  const Screen& screen = screen_;
  if (screen.StokGiris.IsShown()) return screen.StokNew(2);                                            // the barcode of a new item
  if (screen.Frame4.IsShown()) return screen.Text4;                                                    // the serials of a purchase
  if (screen.StokAl.IsShown()) return screen.Text6(5).HasFocus() ? screen.Text6(5) : screen.Text6(0);  // a delivery
  return screen.Text1(1);
}

// A second look at the label of what is being received finds nothing else, and must not wipe what was typed of a new item.
bool ProductField::StandsInDelivery(const std::string& code) const {
  return screen_.StokAl.IsShown() && Trim(screen_.Text6(5).Text()) == Trim(code);
}

void ProductField::EnterCodes() {
  // Behind an open collection a sold line would change what is collected: the code waits until the panel closes.
  if (reading_ || screen_.TahsilatFrame.IsShown()) return;
  reading_ = true;
  for (; !codes_.empty() && !screen_.TahsilatFrame.IsShown(); codes_.pop_front()) {
    screen_.Label11.SetCaption("");
    if (!CodeField().IsShown()) continue;  // outside a sale a code means nothing
    if (StandsInDelivery(codes_.front())) continue;
    ClosePad(form_, screen_);  // a number that nobody took is not the next item's quantity or price
    CodeField().SetFocus();
    world_.loop.Wait(1000);
    screen_.Label11.SetCaption(codes_.front());
    world_.loop.RunPending();  // the Enter that the caption sends
  }
  reading_ = false;
}

void ProductField::ScannedText() {
  Screen& screen = screen_;
  if (screen.Label11.Caption().empty()) return;
  Element& field = CodeField();
  field.SetText(screen.Label11.Caption());
  field.SetFocus();
  // Never into another field: there an Enter would confirm something else.
  if (field.HasFocus()) world_.keyboard.Send(key::kEnter);
}

}  // namespace karvel
