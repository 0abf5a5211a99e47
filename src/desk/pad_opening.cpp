#include "desk/pad_opening.h"

#include <array>
#include <utility>

#include "desk/entry_fields.h"
#include "desk/quiet_line.h"
#include "desk/screen_pad.h"
#include "platform/window.h"
#include "text/turkish.h"
#include "touch/number_pad.h"

namespace karvel {
namespace {

constexpr const char* kFitting = "VelmoraMik";
constexpr int kPrice = 0, kQuantity = 1;

}  // namespace

PadOpening::PadOpening(const DeskParts& parts, PadNumber& number)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), number_(number) {
  Screen& screen = screen_;
  for (Element* const field : screen.elements.All())
    if (HoldsFigures(screen, *field)) connections_ += field->click.Connect([this, field] { Tap(*field); });
  // A tap among letters ends the number, also where no keyboard comes.
  for (Element* const field : screen.elements.All())
    if (HoldsLetters(screen, *field)) connections_ += field->click.Connect([this] { ClosePad(form_, screen_); });
  connections_ += screen.StokGrid.character.Connect([this](CharacterEvent& event) { TypeQuantity(event); });
  connections_ += screen.Form1.keyDown.Connect([this](KeyEvent& event) { Key(event); });
  for (int i = 0; i < screen.Text1.Count(); ++i) {
    connections_ += screen.Text1(i).lostFocus.Connect([this] {
      if (form_.PadOpen) screen_.Form3.Text1.SetText(std::string(number_pad::kExit));
    });
  }
  Follow();
  PadScreen& pad = screen.Form3;
  for (Element* const key : pad.elements.All()) {
    if (key->Kind() != ElementKind::Button) continue;
    connections_ += key->mouseDown.Connect([this](const MouseEvent& event) {
      if (event.button == 2) screen_.popUp(screen_.Form3.PopMik);
    });
  }
  connections_ += pad.MikMenu(0).click.Connect([this] { number_.TakeBack(); });
  connections_ += pad.MikMenu(1).click.Connect([this] { SwitchField(); });
  connections_ += pad.MikMenu(2).click.Connect([&pad] { pad.Command1.Press(); });
}

// A panel that goes takes the pad of its field along, and so does the keyboard that opens.
void PadOpening::Follow() {
  Screen& screen = screen_;
  for (Element* const panel : {&screen.Frame2, &screen.StokAl, &screen.StokGiris, &screen.FatFrame}) {
    connections_ += panel->altered.Connect([this] {
      if (form_.PadOpen && !form_.PadField->IsShown()) ClosePad(form_, screen_);
    });
  }
  connections_ += screen.Form2.Form2.altered.Connect([this] {
    if (screen_.Form2.Form2.Visible()) ClosePad(form_, screen_);
  });
  connections_ += screen.Form3.Form3.altered.Connect([this] { KeepPlace(); });
  connections_ += cursors_.StokData.repositioned.Connect([this] { FollowItem(); });
}

// A number that nobody took was the price or the quantity of the item that was in front.
void PadOpening::FollowItem() {
  const bool ofItem = form_.PadField == &screen_.Text2(kPrice) || form_.PadField == &screen_.Text2(kQuantity);
  const RowKey item = cursors_.StokData.CurrentKey();
  if (form_.PadOpen && ofItem && item != item_) screen_.Form3.Text1.SetText("");
  item_ = item;
}

void PadOpening::KeepPlace() {
  const PadScreen& pad = screen_.Form3;
  if (pad.Form3.Visible() == shown_) return;
  shown_ = pad.Form3.Visible();
  if (!ready_) {
    world_.window.RestoreFitting(kFitting);
    kept_ = pad.frame.Kept();
    ready_ = true;
  }
  if (shown_ || pad.frame.Kept() == kept_) return;
  kept_ = pad.frame.Kept();
  world_.window.SaveFitting(kFitting);
}

void PadOpening::Tap(Element& field) {
  if (form_.PadOpen && form_.PadField == &field) return;
  const bool ofSale = field.Panel() == &screen_.Frame2 || field.Panel() == &screen_.Form1;
  if (ofSale && !SomethingToSell()) return;
  Open(field);
  // What is typed on a real keyboard goes on behind the number, wherever the finger came down.
  if (field.SelectionLength() == 0) field.CaretToEnd();
}

void PadOpening::Open(Element& field) {
  item_ = cursors_.StokData.CurrentKey();
  OpenPad(form_, screen_, field, NameOf(field));
}

std::string PadOpening::NameOf(const Element& field) const {
  constexpr std::array kOfSale{2, 3, 5, 6};  // of Label1
  for (int i = 0; i < screen_.Text2.Count(); ++i)
    if (&screen_.Text2(i) == &field) return Trim(screen_.Label1(kOfSale.at(static_cast<std::size_t>(i))).Caption());
  for (int i = 0; i < screen_.Text6.Count(); ++i)
    if (&screen_.Text6(i) == &field) return Trim(screen_.Label12(i).Caption());
  for (const auto& [name, box] : {std::pair("1.Fiyat", &screen_.StokNew(3)),
                                  {"2.Fiyat", &screen_.StokNew(4)},
                                  {"3.Fiyat", &screen_.StokNew(5)},
                                  {"Miktar", &screen_.StokNew(6)},
                                  {"Tutar", &screen_.StokNew(7)},
                                  {"Tutar", &screen_.Fat(6)},
                                  {"Miktar", &screen_.Fat(7)},
                                  {"Fiyat", &screen_.Fat(8)}})
    if (box == &field) return name;
  return "Sayı";
}

bool PadOpening::SomethingToSell() const {
  return cursors_.CariData.HasCurrent() || cursors_.StokData.HasCurrent();
}

void PadOpening::TypeQuantity(CharacterEvent& event) {
  const bool digit = event.character >= '0' && event.character <= '9';
  Element& quantity = screen_.Text2(kQuantity);
  const bool goesOn = form_.PadOpen && form_.PadField == &quantity;
  const bool comma = event.character == ',' || (goesOn && event.character == '.');
  if (!screen_.Frame2.Visible() || (!digit && !comma)) return;
  if (!goesOn) Open(quantity);
  if (digit) {
    number_.Digit(LetterToUtf8(event.character));
  } else {
    number_.Comma();
  }
  event.character = 0;
}

void PadOpening::Key(KeyEvent& event) {
  if (form_.PadOpen && !event.ctrl && !event.alt && TakesKey(event)) event.dropped = true;
}

bool PadOpening::TakesKey(const KeyEvent& event) {
  PadScreen& pad = screen_.Form3;
  switch (event.code) {
    case key::kEnter:
      if (pad.Tamam.Visible() && HasFocus()) {
        pad.Tamam.Press();
        return true;
      }
      // The key goes on to the field, which is done. A number left waiting for another field is none for what is entered here.
      ClosePad(form_, screen_);
      return false;
    case key::kEscape:
      ClosePad(form_, screen_);
      return true;
    case key::kF8:
      return SwitchField();
    case key::kBackspace:
      if (!screen_.StokGrid.HasFocus()) return false;
      number_.TakeBack();
      return true;
    default:
      return false;
  }
}

bool PadOpening::HasFocus() const {
  const Element& field = *form_.PadField;
  return field.HasFocus() || screen_.Form3.Text1.HasFocus() || (&field == &screen_.Text2(kQuantity) && screen_.StokGrid.HasFocus());
}

bool PadOpening::SwitchField() {
  if (!form_.PadOpen) return false;
  const bool toPrice = form_.PadField == &screen_.Text2(kQuantity);
  if (!toPrice && form_.PadField != &screen_.Text2(kPrice)) return false;
  Element& other = screen_.Text2(toPrice ? kPrice : kQuantity);
  if (!other.IsOpen()) {
    Tell(screen_, "Fiyat sabit, değiştirilemez");
    return true;
  }
  Open(other);
  other.SetFocus();
  return true;
}

}  // namespace karvel
