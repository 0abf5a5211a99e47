#include "desk/completion.h"

#include "text/turkish.h"

namespace karvel {

bool IsCompletingKey(const KeyEvent& event) {
  constexpr int kShift = 16, kControl = 17, kAlt = 18, kCapsLock = 20, kPageUp = 33, kPageDown = 34, kInsert = 45, kF24 = 135;
  if (event.code >= key::kF1 && event.code <= kF24) return false;
  switch (event.code) {
    case kShift:
    case kControl:
    case kAlt:
    case kCapsLock:
    case kPageUp:
    case kPageDown:
    case kInsert:
    case key::kBackspace:
    case key::kDelete:
    case key::kEnter:
    case key::kTab:
    case key::kEscape:
    case key::kLeft:
    case key::kRight:
    case key::kUp:
    case key::kDown:
    case key::kHome:
    case key::kEnd:
      return false;
    default:
      return !event.ctrl && !event.alt;
  }
}

bool NamesCard(const std::string& shown, const std::string& name) {
  return shown == Trim(name) || Like(name, shown + "*");
}

void Complete(Element& field, const std::string& name) {
  const int caret = field.SelectionStart();
  field.SetText(name);
  field.Select(caret, static_cast<int>(LetterCount(name)));
}

}  // namespace karvel
