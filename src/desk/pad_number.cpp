#include "desk/pad_number.h"

#include "desk/screen_pad.h"
#include "touch/number_pad.h"

namespace karvel {

PadNumber::PadNumber(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), pad_(parts.screen.Form3) {
  PadScreen& pad = pad_;
  for (int i = 0; i < pad.cmd.Count(); ++i) connections_ += pad.cmd(i).click.Connect([this, i] { Digit(pad_.cmd(i).Caption()); });
  for (int i = 0; i < pad.Comonlu.Count(); ++i)
    connections_ += pad.Comonlu(i).click.Connect([this, i] { Write(number_pad::WithZeros(pad_.Text1.Text(), pad_.Comonlu(i).Caption())); });
  connections_ += pad.cmdpoint.click.Connect([this] { Comma(); });
  pad.Label1.SetCaption("Sil");
  connections_ += pad.Label1.click.Connect([this] { Write(""); });
  connections_ += pad.Text1.gotFocus.Connect([this] { Write(""); });
  connections_ += pad.Text1.character.Connect([this](CharacterEvent& event) { Character(event); });
  connections_ += pad.Text1.changed.Connect([this] { Changed(); });
  Changed();
}

void PadNumber::Digit(const std::string& digit) {
  Write(number_pad::WithDigit(pad_.Text1.Text(), digit, pad_.Form3.Caption()));
}

void PadNumber::Comma() {
  Write(number_pad::WithComma(pad_.Text1.Text()));
}

void PadNumber::TakeBack() {
  Write(number_pad::WithoutLast(pad_.Text1.Text()));
}

void PadNumber::Write(const std::string& number) {
  pad_.Text1.SetText(number);
  pad_.Text1.CaretToEnd();
}

void PadNumber::Changed() {
  if (pad_.Text1.Text() == number_pad::kExit) {
    ClosePad(form_, screen_);
    return;
  }
  pad_.Tamam.SetVisible(number_pad::HoldsAnswer(pad_.Text1.Text()));
}

void PadNumber::Character(CharacterEvent& event) {
  const Element& box = pad_.Text1;
  event.character = number_pad::Typed(box.Text(), box.SelectionStart(), box.SelectionLength(), event.character);
  if (event.character != U',' || !box.Text().empty()) return;
  event.character = 0;
  Comma();
}

}  // namespace karvel
