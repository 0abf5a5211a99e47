#include "desk/keyboard_keys.h"

#include <utility>

#include "text/turkish.h"
#include "touch/key_case.h"

namespace karvel {
namespace {

using Keyboard = KeyboardScreen;

bool IsLetter(int index) {
  return index < Keyboard::kCased || index == Keyboard::kQ || index == Keyboard::kW || index == Keyboard::kX;
}

}  // namespace

KeyboardKeys::KeyboardKeys(KeyboardScreen& keyboard, Settings& settings) : keyboard_(keyboard), settings_(settings) {
  const auto highlights = [this](Element& key) {
    key.SetColor(color::kCyan);
    connections_ += key.mouseDown.Connect([this, &key](const MouseEvent&) { Highlight(key); });
  };
  for (int i = 0; i < keyboard.Label1.Count(); ++i) {
    highlights(keyboard.Label1(i));
    connections_ += keyboard.Label1(i).click.Connect([this, i] { Press(i); });
  }
  highlights(keyboard.Command1);
  connections_ += keyboard.Form2.altered.Connect([this] {
    if (!keyboard_.Form2.Visible() && seçiliTuş_) std::exchange(seçiliTuş_, nullptr)->SetColor(color::kCyan);
  });
  ShowCase();
}

void KeyboardKeys::ReadCase() {
  capsAçık_ = settings_.GetBoolean(Setting::KeyboardCaps);
  ShowCase();
}

void KeyboardKeys::Highlight(Element& key) {
  if (seçiliTuş_) seçiliTuş_->SetColor(color::kCyan);
  seçiliTuş_ = &key;
  key.SetColor(color::kYellow);
}

void KeyboardKeys::Press(int index) {
  switch (index) {
    case Keyboard::kBlock:
      return ToggleBlock();
    case Keyboard::kClear:
      return Clear();
    case Keyboard::kCase:
      return TurnCase();
    case Keyboard::kBack:
      return CutLast();
    case Keyboard::kSpace:
      return Write(" ");
    default:
      return Write(InCase(keyboard_.Label1(index).Caption(), capsAçık_));
  }
}

void KeyboardKeys::Write(const std::string& letter) {
  std::string written = letter;
  if (passes) {
    const char32_t passed = passes(FirstLetter(letter));
    if (passed == 0) return;
    written = LetterToUtf8(passed);
  }
  SetText(keyboard_.Text1.Text() + written);
}

void KeyboardKeys::CutLast() {
  const std::string& text = keyboard_.Text1.Text();
  if (!text.empty()) SetText(LeftLetters(text, LetterCount(text) - 1));
}

// By way of a blank, so that a box that was empty tells of the change too.
void KeyboardKeys::Clear() {
  SetText(" ");
  SetText("");
}

void KeyboardKeys::SetText(const std::string& text) {
  keyboard_.Text1.SetText(text);
  keyboard_.Text1.CaretToEnd();
}

void KeyboardKeys::TurnCase() {
  capsAçık_ = !capsAçık_;
  settings_.SaveBoolean(Setting::KeyboardCaps, capsAçık_);
  ShowCase();
}

void KeyboardKeys::ShowCase() {
  keyboard_.Label1(Keyboard::kCase).SetCaption(capsAçık_ ? "AB" : "ab");
  for (int i = 0; i < keyboard_.Label1.Count(); ++i)
    if (IsLetter(i)) keyboard_.Label1(i).SetCaption(InCase(keyboard_.Label1(i).Caption(), capsAçık_));
}

void KeyboardKeys::ToggleBlock() {
  keyboard_.Frame1.SetVisible(!keyboard_.Frame1.Visible());
  keyboard_.Label1(Keyboard::kBlock).SetCaption(keyboard_.Frame1.Visible() ? "Num Off" : "Num On");
}

}  // namespace karvel
