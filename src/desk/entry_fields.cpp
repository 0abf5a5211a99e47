#include "desk/entry_fields.h"

namespace karvel {
namespace {

bool IsAmong(const ElementArray& fields, int first, int last, const Element& field) {
  for (int i = first; i <= last; ++i)
    if (&fields(i) == &field) return true;
  return false;
}

}  // namespace

bool HoldsFigures(const Screen& screen, const Element& field) {
  constexpr int kFirstPrice = 3, kAmount = 6, kPrice = 8;  // of a new item; of an invoice
  return IsAmong(screen.Text2, 0, 3, field) || IsAmong(screen.Text6, 1, 4, field) ||
         IsAmong(screen.StokNew, kFirstPrice, screen.StokNew.Count() - 1, field) || IsAmong(screen.Fat, kAmount, kPrice, field);
}

bool HoldsLetters(const Screen& screen, const Element& field) {
  return field.Kind() == ElementKind::TextBox && &field != &screen.Text3 && !HoldsFigures(screen, field);
}

KeyboardChoice ChosenKeyboard(const Screen& screen) {
  if (screen.Klv(1).Checked()) return KeyboardChoice::Always;
  return screen.Klv(2).Checked() ? KeyboardChoice::Never : KeyboardChoice::Automatic;
}

}  // namespace karvel
