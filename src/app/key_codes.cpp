#include "app/key_codes.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace karvel {

int VirtualKey(const QKeyEvent& event) {
  const int pressed = event.key();
  if ((pressed >= Qt::Key_A && pressed <= Qt::Key_Z) || (pressed >= Qt::Key_0 && pressed <= Qt::Key_9)) return pressed;
  if (pressed >= Qt::Key_F1 && pressed <= Qt::Key_F24) return key::kF1 + (pressed - Qt::Key_F1);
  switch (pressed) {
    case Qt::Key_Backspace:
      return key::kBackspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return key::kTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return key::kEnter;
    case Qt::Key_Escape:
      return key::kEscape;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return key::kEnd;
    case Qt::Key_Home:
      return key::kHome;
    case Qt::Key_Left:
      return key::kLeft;
    case Qt::Key_Up:
      return key::kUp;
    case Qt::Key_Right:
      return key::kRight;
    case Qt::Key_Down:
      return key::kDown;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return key::kDelete;
    default:
      break;
  }
  // A letter that came without a key code (an input method, a foreign layout): the capital ASCII letter where it is one.
  const QString text = event.text();
  if (text.size() != 1) return 0;
  const ushort unit = text[0].unicode();
  if (unit >= 'a' && unit <= 'z') return unit - 'a' + 'A';
  return (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9') ? unit : 0;
}

KeyEvent ToKeyEvent(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  KeyEvent key;
  key.code = VirtualKey(event);
  key.shift = held.testFlag(Qt::ShiftModifier);
  key.ctrl = held.testFlag(Qt::ControlModifier);
  key.alt = held.testFlag(Qt::AltModifier);
  return key;
}

char32_t CharacterOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return key::kEnter;
    case Qt::Key_Backspace:
      return event.modifiers().testFlag(Qt::ControlModifier) ? 0 : key::kBackspace;
    default:
      break;
  }
  const Qt::KeyboardModifiers held = event.modifiers();
  const bool ctrl = held.testFlag(Qt::ControlModifier), alt = held.testFlag(Qt::AltModifier);
  if (ctrl != alt) return 0;  // both together are AltGr, which writes letters
  const QList<uint> letters = event.text().toUcs4();
  if (letters.size() != 1 || letters[0] < 32 || letters[0] == 127) return 0;
  return letters[0];
}

MouseEvent ToMouseEvent(const QMouseEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  MouseEvent mouse;
  const bool right = event.button() == Qt::RightButton || (event.button() == Qt::NoButton && event.buttons().testFlag(Qt::RightButton));
  mouse.button = right ? 2 : 1;
  mouse.shift = held.testFlag(Qt::ShiftModifier);
  mouse.ctrl = held.testFlag(Qt::ControlModifier);
  mouse.alt = held.testFlag(Qt::AltModifier);
  mouse.x = static_cast<int>(event.position().x());
  mouse.y = static_cast<int>(event.position().y());
  return mouse;
}

bool IsModifier(int qtKey) {
  return qtKey == Qt::Key_Shift || qtKey == Qt::Key_Control || qtKey == Qt::Key_Alt || qtKey == Qt::Key_AltGr || qtKey == Qt::Key_Meta ||
         qtKey == Qt::Key_CapsLock || qtKey == Qt::Key_NumLock;
}

}  // namespace karvel
