#include "desk/product_field.h"

#include "desk/completion.h"
#include "desk/screen_keyboard.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "platform/event_loop.h"
#include "platform/keyboard.h"
#include "platform/scanner.h"
#include "text/format.h"
#include "text/turkish.h"
#include "touch/turkish_case.h"

namespace karvel {
namespace {
const Steps step("ProductField");

// By the first of the columns that has the text.
bool FindIn(Cursor& among, std::initializer_list<const char*> columns, const std::string& text) {
  for (const char* const column : columns) {
    step("find card", among.FindFirst(std::string(column) + "='" + text + "'"));
    if (!among.NoMatch()) return true;
  }
  return false;
}

}  // namespace

ProductField::ProductField(const DeskParts& parts) : parts_(parts) {
  Element& field = parts_.screen.Text1(1);
  field.keyDown.Connect([this](const KeyEvent& event) {
    if (event.code == key::kEnter) EnterDown();
  });
  field.character.Connect([this](CharacterEvent& event) {
    if (event.character == key::kEnter) {
      event.character = 0;
      EnterCharacter();
    } else {
      event.character = TürkçeBüyük(parts_.screen.Text1(1).Text(), parts_.screen.Text1(1).SelectionStart(), event.character);
    }
  });
  field.changed.Connect([this] { TextChanged(); });
  field.keyUp.Connect([this](const KeyEvent& event) { KeyUp(event); });
  field.gotFocus.Connect([this] { Focused(); });
  parts_.screen.Label11.changed.Connect([this] { ScannedText(); });
  parts_.screen.TahsilatFrame.altered.Connect([this] {
    if (!codes_.empty()) EnterCodes();
  });
  parts_.world.scanner.codeRead.Connect([this](const std::string& code) { CodeRead(code); });
}

void ProductField::Focused() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.RepositionGuard == 66) return;
  form.ActiveFieldCode = 1;
  Element& field = screen.Text1(1);
  const bool byBarcode = screen.Label1(1).Caption() == " Barkod";
  if (!byBarcode && field.Text().empty() && cursors.StokData.HasRows()) NameItemInFront();
  // The next name or code, typed or scanned, takes the place of what stands there.
  field.SelectAll();
}

void ProductField::NameItemInFront() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& cards = cursors.StokData;
  if (NumberOrZero(screen.Text2(0).Text()) == 0 && cards.HasCurrent()) {
    // A code that nobody knows took the price away; the item must not go for nothing.
    const std::string quantity = screen.Text2(1).Text();
    step("item in front", cards.MoveTo(cards.CurrentKey()));
    screen.Text2(1).SetText(quantity);
  }
  screen.Text1(1).SetText(cards.Text("StokAdi"));
}

void ProductField::EnterDown() {
  auto& [screen, form, cursors, settings, world] = parts_;
  matched_ = false;
  CloseKeyboard(parts_);  // what was typed on it is taken, so the prices follow again
  Cursor& cards = cursors.StokData;
  const std::string text = screen.Text1(1).Text();
  if (Trim(text).empty()) return;  // a reader that ends a code with two signs must not sell the card without a barcode
  step("find barcode", cards.FindFirst("Barkod='" + text + "'"));
  matched_ = !cards.NoMatch();
  if (!matched_ && !FindName(text)) return;
  screen.Text1(1).SetText(cards.Text("StokAdi"));
  screen.Text2(1).SetText("1");
}

bool ProductField::FindName(const std::string& text) {
  Cursor& cards = parts_.cursors.StokData;
  // The card in front is the one meant, also when another bears the same name.
  if (cards.HasCurrent() && cards.Text("StokAdi") == text) {
    // Its prices are worked out as if it had been found: those of another item may stand there, or a step of its own.
    return cards.MoveTo(cards.CurrentKey()).Ok();
  }
  step("find name", cards.FindFirst("StokAdi='" + text + "'"));
  return !cards.NoMatch();
}

bool ProductField::FindCard(const std::string& text) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& cards = cursors.StokData;
  if (FindIn(cards, {"Barkod", "StokKod"}, text) || FindName(text) || FindOutside({"Barkod", "StokKod", "StokAdi"}, text)) return true;
  // A code that was read into the serial numbers sells its item.
  Cursor& serials = cursors.SeriNoData;
  step("find serial", serials.FindFirst("Barcode='" + text + "'"));
  if (serials.NoMatch()) return false;
  const std::string code = ReplaceAll(serials.Text("StokKod"), "'", "''");
  if (!FindIn(cards, {"StokKod"}, code) && !FindOutside({"StokKod"}, code)) return false;
  form.ScannedSerial = serials.Text("barcode");
  return true;
}

// The list is narrowed to a group or a name; what the customer lays on the counter is sold all the same.
bool ProductField::FindOutside(Columns columns, const std::string& text) {
  Cursor& cards = parts_.cursors.StokData;
  if (cards.RecordSource() == sources::kStock) return false;
  Cursor all(parts_.world.stores, "all cards");
  all.SetDatabaseName(cards.DatabaseName());
  step("all cards", all.Open(sources::kStock));
  if (!FindIn(all, columns, text)) return false;
  step("all cards", cards.Open(sources::kStock));
  step("found card", cards.MoveTo(all.CurrentKey()));
  parts_.screen.Text2(1).SetText("1");
  return true;
}

void ProductField::EnterCharacter() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Element& field = screen.Text1(1);
  if (Trim(field.Text()).empty()) return;
  form.RepositionGuard = 99;
  screen.Text2(0).SetText("0");
  // The card that the first pass found by its code stays: another may bear the same name.
  const bool found = (matched_ && field.Text() == cursors.StokData.Text("StokAdi")) || FindCard(field.Text());
  matched_ = false;
  if (found) {
    // An item to sell ends a correction or a deletion that was begun.
    form.EditLineId.clear();
    screen.Command3.SetCaption("Çıkış");
    screen.Command2.SetCaption("Tamam");
    field.SetText(cursors.StokData.Text("StokAdi"));
    screen.Text2(0).SetText(Format(cursors.StokData.Number("Fiyat"), form.PriceFormat));
    if (screen.SecimTamam.Checked()) {
      form.RepositionGuard = 0;
      screen.Text2(1).SetText("1");  // each code is one piece, whatever quantity stood there
      screen.Command2.Press();
      if (field.HasFocus()) field.SelectAll();  // the next code takes the place of this name
    } else {
      screen.Text2(1).SetFocus();
    }
  } else {
    field.SetText("");
  }
  form.RepositionGuard = 0;
}

void ProductField::TextChanged() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string& text = screen.Text1(1).Text();
  if (!screen.Text1(1).HasFocus() || screen.Label1(1).Caption() != " Ürün" || Trim(text).empty() || text == "*") return;
  Cursor& cards = cursors.StokData;
  if (text == cards.Text("StokAdi")) return;  // the row in front is the one meant
  const float guard = form.RepositionGuard;
  form.RepositionGuard = 99;
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  form.RepositionGuard = guard;
  if (!cards.NoMatch()) screen.Text2(0).SetText(Format(cards.Number("Fiyat"), form.PriceFormat));
}

void ProductField::KeyUp(const KeyEvent& event) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Element& field = screen.Text1(1);
  if (!IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  Cursor& cards = cursors.StokData;
  if (cards.HasCurrent() && cards.Text("StokAdi") == field.Text()) return;
  form.RepositionGuard = 99;
  step("find name", cards.FindFirst("StokAdi Like '" + field.Text() + "*'"));
  const bool found = !cards.NoMatch();
  form.RepositionGuard = 0;
  if (found && !form.KeyboardOpen) Complete(field, cards.Text("StokAdi"));
}

void ProductField::CodeRead(const std::string& code) {
  // Codes wait in line: the next one is shown when the one before has been entered.
  codes_.push_back(code);
  EnterCodes();
}

Element& ProductField::CodeField() const {
  const Screen& screen = parts_.screen;
  if (screen.Frame4.IsShown()) return screen.Text4;                                                    // the serials of a purchase
  if (screen.StokAl.IsShown()) return screen.Text6(5).HasFocus() ? screen.Text6(5) : screen.Text6(0);  // a delivery
  return screen.Text1(1);
}

void ProductField::EnterCodes() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // Behind an open collection a sold line would change what is collected: the code waits until the panel closes.
  if (reading_ || screen.TahsilatFrame.IsShown()) return;
  reading_ = true;
  for (; !codes_.empty() && !screen.TahsilatFrame.IsShown(); codes_.pop_front()) {
    screen.Label11.SetCaption("");
    if (!CodeField().IsShown()) continue;  // a code is an item of a sale, and there is none
    CodeField().SetFocus();
    world.loop.Wait(1000);
    screen.Label11.SetCaption(codes_.front());
    world.loop.RunPending();  // the Enter that it sends
  }
  reading_ = false;
}

void ProductField::ScannedText() {
  Screen& screen = parts_.screen;
  if (screen.Label11.Caption().empty()) return;
  Element& field = CodeField();
  field.SetText(screen.Label11.Caption());
  field.SetFocus();
  // Never into another field: there an Enter would confirm something else.
  if (field.HasFocus()) parts_.world.keyboard.Send(key::kEnter);
}

}  // namespace karvel
