#include "desk/fixed_window.h"

#include "platform/window.h"

namespace karvel {
namespace {
constexpr int kStep = 2;  // pixels a key press moves: 30 screen units
}

FixedWindow::FixedWindow(const DeskParts& parts) : form_(parts.form), world_(parts.world) {
  connections_ += parts.screen.Form1.keyDown.Connect([this](KeyEvent& event) { Key(event); });
}

void FixedWindow::Apply() {
  world_.window.SetFixed(form_.Sabit);
}

void FixedWindow::Key(KeyEvent& event) {
  if (form_.Sabit || !(event.ctrl || event.alt)) return;
  const int dx = event.code == key::kLeft ? -kStep : event.code == key::kRight ? kStep : 0;
  const int dy = event.code == key::kUp ? -kStep : event.code == key::kDown ? kStep : 0;
  if (dx == 0 && dy == 0) return;
  event.dropped = true;
  if (event.ctrl) {
    world_.window.MoveBy(dx, dy);
  } else {
    world_.window.SizeBy(dx, dy);
  }
}

}  // namespace karvel
