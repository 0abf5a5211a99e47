#include "desk/window_rule.h"

#include "platform/event_loop.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr int kStep = 2;  // pixels a key press moves: 30 screen units
constexpr int kTickMilliseconds = 250;
constexpr int kHeadingHeight = 44;  // pixels of a grid that take the long press
}  // namespace

WindowRule::WindowRule(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world) {
  Screen& screen = screen_;
  connections_ += screen.Form1.keyDown.Connect([this](KeyEvent& event) { Key(event); });
  connections_ += screen.Form1.dblClick.Connect([this] { ChooseFont(); });
  connections_ += screen.FontDialog.click.Connect([this] { ChooseFont(); });
  connections_ += screen.Command3.mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == 1) Press(4);
  });
  connections_ += screen.Command3.mouseUp.Connect([this](const MouseEvent&) { StopTimer(); });
  for (GridElement* const grid : {&screen.CariGrid, &screen.StokGrid, &screen.HareketGrid}) {
    connections_ += grid->mouseDown.Connect([this](const MouseEvent& event) {
      if (event.button == 1 && event.y < kHeadingHeight) Press(2);
    });
    connections_ += grid->released.Connect([this] { StopTimer(); });
  }
}

void WindowRule::ApplyFixed() {
  world_.window.SetFixed(form_.Sabit);
}

void WindowRule::ApplyFonts() {
  const std::string desk = settings_.Get(Setting::DeskFontName);
  if (!desk.empty()) world_.window.SetDeskFont(desk, settings_.GetNumber(Setting::DeskFontSize), false);
  const std::string grid = settings_.Get(Setting::GridFontName);
  if (!grid.empty()) world_.window.SetGridFont(grid, settings_.GetNumber(Setting::GridFontSize), false);
}

void WindowRule::Key(KeyEvent& event) {
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

void WindowRule::ChooseFont() {
  const auto font = world_.messages.FontDialog({settings_.Get(Setting::DeskFontName), settings_.GetNumber(Setting::DeskFontSize), false});
  if (!font) return;
  world_.window.SetDeskFont(font->name, font->size, font->bold);
  settings_.Save(Setting::DeskFontName, font->name);
  settings_.SaveNumber(Setting::DeskFontSize, font->size);
}

void WindowRule::Press(int deadlineSeconds) {
  ticks_ = 0;
  timer_ = world_.loop.Every(kTickMilliseconds, [this, deadlineSeconds] {
    if (++ticks_ * kTickMilliseconds <= deadlineSeconds * 1000) return;
    const auto keep = std::move(timer_);
    if (!world_.window.IsActive()) return;
    form_.Sabit = false;
    world_.window.SetFixed(false);
    screen_.SetBusy(false);
    world_.window.Close();
  });
}

}  // namespace karvel
