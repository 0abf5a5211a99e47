#include "desk/fixed_window.h"

#include "platform/window.h"

namespace karvel {
namespace {
constexpr int kStep = 2;  // pixels a key press moves: 30 screen units
}

FixedWindow::FixedWindow(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world) {
  connections_ += screen_.PencereSabit.click.Connect([this] { Toggle(); });
  connections_ += screen_.Form1.keyDown.Connect([this](KeyEvent& event) { Key(event); });
}

void FixedWindow::Apply() {
  world_.window.SetFixed(form_.Sabit);
  screen_.Form2.frame.SetFixed(form_.Sabit);
  screen_.Form3.frame.SetFixed(form_.Sabit);
  screen_.PencereSabit.SetChecked(form_.Sabit);
}

void FixedWindow::Toggle() {
  form_.Sabit = !form_.Sabit;
  settings_.SaveBoolean(Setting::WindowFixed, form_.Sabit);
  Apply();
}

FloatingFrame* FixedWindow::OpenFrame() const {
  if (screen_.Form2.Form2.Visible()) return &screen_.Form2.frame;
  if (screen_.Form3.Form3.Visible()) return &screen_.Form3.frame;
  return nullptr;
}

void FixedWindow::Key(KeyEvent& event) {
  if (form_.Sabit || !(event.ctrl || event.alt)) return;
  const int dx = event.code == key::kLeft ? -kStep : event.code == key::kRight ? kStep : 0;
  const int dy = event.code == key::kUp ? -kStep : event.code == key::kDown ? kStep : 0;
  if (dx == 0 && dy == 0) return;
  event.dropped = true;
  if (FloatingFrame* const small = OpenFrame()) {
    if (event.ctrl) {
      small->MoveBy(dx, dy);
    } else {
      small->SizeBy(dx, dy);
    }
    return;
  }
  if (event.ctrl) {
    world_.window.MoveBy(dx, dy);
  } else {
    world_.window.SizeBy(dx, dy);
  }
}

}  // namespace karvel
