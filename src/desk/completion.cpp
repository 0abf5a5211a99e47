#include "desk/completion.h"

#include "text/turkish.h"

namespace karvel {

bool IsCompletingKey(const KeyEvent& event) {
  switch (event.code) {
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

void Complete(Element& field, const std::string& name) {
  const int caret = field.SelectionStart();
  field.SetText(name);
  field.Select(caret, static_cast<int>(LetterCount(name)));
}

}  // namespace karvel
