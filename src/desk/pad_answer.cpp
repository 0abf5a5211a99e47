#include "desk/pad_answer.h"

#include "desk/screen_pad.h"
#include "text/format.h"
#include "text/turkish.h"
#include "touch/typed_number.h"

namespace karvel {
namespace {

constexpr const char* kClose = "Kapat";

}  // namespace

PadAnswer::PadAnswer(const DeskParts& parts, MainButton& button) : screen_(parts.screen), form_(parts.form), pad_(parts.screen.Form3) {
  button.AskFirst([this] { return ConfirmForMainButton(); });
  connections_ += pad_.Text1.changed.Connect([&button] { button.FollowAmounts(); });
  connections_ += pad_.Tamam.click.Connect([this] { Confirm(); });
  connections_ += pad_.Cmdc.click.Connect([this] { Clear(); });
  for (Element* const key : {&pad_.Command1, &pad_.Label2}) connections_ += key->click.Connect([this, key] { Leave(*key); });
  connections_ += pad_.Form3.dblClick.Connect([this] { StandAtSide(); });
}

void PadAnswer::Confirm() {
  if (!form_.PadOpen) return;
  Element& field = *form_.PadField;
  const std::string number = FinishedNumber(pad_.Text1.Text());
  if (!pad_.Label2.Caption().empty() && IsNumeric(number)) Give(number);
  ClosePad(form_, screen_);
  field.SetFocus();
}

bool PadAnswer::ConfirmForMainButton() {
  if (!form_.PadOpen) return false;
  // A nought that stands there was meant too: what was in the field before must not be booked in its place.
  if (Trim(pad_.Text1.Text()).empty()) {
    ClosePad(form_, screen_);
    return false;
  }
  Confirm();
  return true;
}

void PadAnswer::Clear() {
  pad_.Text1.SetText("");
  if (form_.PadOpen) Give("0");
}

void PadAnswer::Leave(const Element& key) {
  if (key.Caption() == kClose) {
    ClosePad(form_, screen_);
  } else if (form_.PadOpen) {
    pad_.elements.MoveFocus(nullptr);  // out of the pad's own box
    form_.PadField->SetFocus();
  }
}

// The fields of the sale take it through Text3, which knows what may be sold.
void PadAnswer::Give(const std::string& number) {
  for (int i = 0; i < screen_.Text2.Count(); ++i) {
    if (&screen_.Text2(i) != form_.PadField) continue;
    form_.ActiveFieldCode = static_cast<float>(i);
    screen_.Text3.SetText(number);
    return;
  }
  form_.PadField->SetText(number);
  form_.PadField->CaretToEnd();
}

// At the desk's upper right corner, in its usual size, unless it would lie over the field there.
void PadAnswer::StandAtSide() {
  FloatingFrame& frame = pad_.frame;
  const WindowSize usual = frame.Sizes().usual;
  frame.Put({frame.Around().room.width, 0, usual.width, usual.height});
  frame.LayAmong(frame.Around());
}

}  // namespace karvel
