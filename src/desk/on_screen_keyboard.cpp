#include "desk/on_screen_keyboard.h"

#include <algorithm>

#include "desk/entry_fields.h"
#include "desk/screen_keyboard.h"
#include "platform/keyboard.h"
#include "platform/window.h"

namespace karvel {
namespace {

constexpr const char* kFitting = "VelmoraKlv";

// A key that ends an entry, or moves from it, is also sent by a scanner or by the desk itself.
bool IsTyped(const KeyEvent& event) {
  return event.code > key::kEscape && !event.ctrl && !event.alt;
}

// As long as the shortest barcode, and figures alone: a scanner that types as a keyboard does sends an Enter behind it.
bool IsScanned(const std::string& text) {
  constexpr std::size_t kShortestCode = 8;
  return text.size() >= kShortestCode && std::ranges::all_of(text, [](char sign) { return sign >= '0' && sign <= '9'; });
}

// Fields with a rule of their own for taps.
bool HasTapRule(const Screen& screen, const Element& field) {
  return &field == &screen.Text1(0) || &field == &screen.Text1(1) || &field == &screen.Stoktxt;
}

// Fields in which Enter takes what was typed: a finger says it by a second tap.
bool TakesBySecondTap(const Screen& screen, const Element& field) {
  return &field == &screen.Text4 || &field == &screen.Text6(0);
}

}  // namespace

OnScreenKeyboard::OnScreenKeyboard(const DeskParts& parts)
    : screen_(parts.screen),
      form_(parts.form),
      world_(parts.world),
      keyboard_(parts.screen.Form2),
      keys_(parts.screen.Form2, parts.settings) {
  connections_ += screen_.keyboardWanted.Connect([this](KeyboardWish& wish) { Answer(wish); });
  connections_ += screen_.keyboardDone.Connect([this] { Unload(); });
  connections_ += screen_.elements.focusMoved.Connect([this](Element* focused) { Follow(focused); });
  for (Element* element : screen_.elements.All()) {
    if (HoldsLetters(screen_, *element)) ConnectField(*element);
    if (element->Kind() != ElementKind::Panel) continue;
    connections_ += element->altered.Connect([this] {
      if (field_ && !field_->IsShown()) CloseKeyboard(form_, screen_);
    });
  }
  ConnectOwnBox();
  connections_ += keyboard_.Command1.click.Connect([this] { Leave(); });
  connections_ += keyboard_.Form2.dblClick.Connect([this] {
    const WindowBox box = keyboard_.frame.Box();
    keyboard_.frame.Put({0, box.top, keyboard_.frame.Around().room.width - kFloatingStep, box.height});
  });
  keys_.passes = [this](char32_t letter) { return Passed(letter); };
}

void OnScreenKeyboard::ConnectField(Element& field) {
  connections_ += field.keyDown.Connect([this, &field](const KeyEvent& event) {
    if (IsTyped(event)) typed_.insert(&field);
    if (event.code == key::kEnter && IsScanned(field.Text())) typed_.erase(&field);  // nobody has typed
  });
  connections_ += field.changed.Connect([this, &field] {
    if (field_ == &field && !mirroring_) ShowFieldsText();
  });
  if (HasTapRule(screen_, field)) return;
  connections_ += field.click.Connect([this, &field] { Tap(field); });
}

void OnScreenKeyboard::ConnectOwnBox() {
  connections_ += keyboard_.Text1.changed.Connect([this] { Mirror(); });
  connections_ += keyboard_.Text1.keyDown.Connect([this](KeyEvent& event) { KeyInOwnBox(event); });
  connections_ += keyboard_.Text1.character.Connect([this](CharacterEvent& event) {
    if (!field_ || event.character < ' ') return;
    field_->Select(keyboard_.Text1.SelectionStart(), keyboard_.Text1.SelectionLength());
    field_->character(event);
  });
}

bool OnScreenKeyboard::OpensOn(const Element& field) const {
  switch (ChosenKeyboard(screen_)) {
    case KeyboardChoice::Always:
      return true;
    case KeyboardChoice::Never:
      return false;
    case KeyboardChoice::Automatic:
      break;
  }
  return !typed_.contains(&field);
}

void OnScreenKeyboard::Answer(KeyboardWish& wish) {
  if (field_ != &wish.field && !OpensOn(wish.field)) {
    Unload();
  } else if (field_) {
    Serve(wish.field);
  } else {
    OpenOn(wish.field);
  }
  wish.shown = field_ != nullptr;
}

void OnScreenKeyboard::OpenOn(Element& field) {
  if (!ready_) {
    world_.window.RestoreFitting(kFitting);
    kept_ = keyboard_.frame.Kept();
    keys_.ReadCase();
    ready_ = true;
  }
  Serve(field);
  keyboard_.Form2.SetVisible(true);
}

void OnScreenKeyboard::Serve(Element& field) {
  if (keyboard_.code == KeyboardScreen::kHeldOff) {
    keyboard_.code = 0;
  } else if (keyboard_.code > 0) {
    form_.ActiveFieldCode = keyboard_.code - 1;
  }
  keyboard_.code = form_.ActiveFieldCode + 1;
  field_ = &field;
  ShowFieldsText();
  keyboard_.frame.Serve(&field);
}

void OnScreenKeyboard::Tap(Element& field) {
  if (field.Locked()) return;
  if (field_ == &field && TakesBySecondTap(screen_, field) && !field.Text().empty()) {
    CloseKeyboard(form_, screen_);
    world_.keyboard.Send(key::kEnter);
    return;
  }
  if (ChosenKeyboard(screen_) == KeyboardChoice::Never) {
    field.SelectAll();
  } else if (field_ != &field) {
    OpenKeyboard(form_, screen_, field);
  }
}

void OnScreenKeyboard::Unload() {
  if (!field_) return;
  field_ = nullptr;
  keyboard_.code = KeyboardScreen::kHeldOff;
  keyboard_.Form2.SetVisible(false);
  keyboard_.frame.Serve(nullptr);
  if (keyboard_.frame.Kept() == kept_) return;
  kept_ = keyboard_.frame.Kept();
  world_.window.SaveFitting(kFitting);
}

void OnScreenKeyboard::Leave() {
  if (field_) field_->lostFocus();
  CloseKeyboard(form_, screen_);
}

// From field to field of one panel it goes along; what else gets the focus has no use for it.
void OnScreenKeyboard::Follow(Element* focused) {
  if (!field_ || !focused || focused == field_) return;
  if (HoldsLetters(screen_, *focused) && !HasTapRule(screen_, *focused) && focused->Panel() == field_->Panel() && OpensOn(*focused)) {
    keyboard_.code = KeyboardScreen::kHeldOff;
    Serve(*focused);
  } else {
    CloseKeyboard(form_, screen_);
  }
}

void OnScreenKeyboard::Mirror() {
  if (!field_ || mirroring_) return;
  mirroring_ = true;
  field_->SetText(keyboard_.Text1.Text());
  if (field_) field_->CaretToEnd();
  mirroring_ = false;
  if (field_ && field_->Text() != keyboard_.Text1.Text()) ShowFieldsText();
}

void OnScreenKeyboard::ShowFieldsText() {
  const bool outer = mirroring_;
  mirroring_ = true;
  keyboard_.Text1.SetText(field_->Text());
  keyboard_.Text1.CaretToEnd();
  mirroring_ = outer;
}

char32_t OnScreenKeyboard::Passed(char32_t letter) {
  if (!field_) return letter;
  field_->CaretToEnd();
  CharacterEvent event{letter};
  field_->character(event);
  return event.character;
}

void OnScreenKeyboard::KeyInOwnBox(KeyEvent& event) {
  if (!field_) return;
  if (IsTyped(event)) typed_.insert(field_);
  if (event.code != key::kEnter && event.code != key::kTab) return;
  event.dropped = true;
  keyboard_.elements.MoveFocus(nullptr);  // the field has the keyboard again, and what the key does there is its own matter
  world_.keyboard.Send(event.code);
}

}  // namespace karvel
