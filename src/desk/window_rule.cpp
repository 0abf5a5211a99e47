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

WindowRule::WindowRule(const DeskParts& parts) : parts_(parts) {
  Screen& screen = parts_.screen;
  screen.Form1.keyDown.Connect([this](KeyEvent& event) { Key(event); });
  screen.Form1.dblClick.Connect([this] { ChooseFont(); });
  screen.FontDialog.click.Connect([this] { ChooseFont(); });
  screen.Command3.mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == 1) Press(4);
  });
  screen.Command3.mouseUp.Connect([this](const MouseEvent&) { StopTimer(); });
  for (GridElement* const grid : {&screen.CariGrid, &screen.StokGrid, &screen.HareketGrid}) {
    grid->mouseDown.Connect([this](const MouseEvent& event) {
      if (event.button == 1 && event.y < kHeadingHeight) Press(2);
    });
    grid->released.Connect([this] { StopTimer(); });
  }
}

void WindowRule::ApplyFixed() {
  parts_.world.window.SetFixed(parts_.form.Sabit);
}

void WindowRule::ApplyFonts() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string desk = settings.Get(Setting::DeskFontName);
  if (!desk.empty()) world.window.SetDeskFont(desk, settings.GetNumber(Setting::DeskFontSize), false);
  const std::string grid = settings.Get(Setting::GridFontName);
  if (!grid.empty()) world.window.SetGridFont(grid, settings.GetNumber(Setting::GridFontSize), false);
}

void WindowRule::Key(KeyEvent& event) {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.Sabit || !(event.ctrl || event.alt)) return;
  const int dx = event.code == key::kLeft ? -kStep : event.code == key::kRight ? kStep : 0;
  const int dy = event.code == key::kUp ? -kStep : event.code == key::kDown ? kStep : 0;
  if (dx == 0 && dy == 0) return;
  event.dropped = true;
  if (event.ctrl) {
    world.window.MoveBy(dx, dy);
  } else {
    world.window.SizeBy(dx, dy);
  }
}

void WindowRule::ChooseFont() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const auto font = world.messages.FontDialog({settings.Get(Setting::DeskFontName), settings.GetNumber(Setting::DeskFontSize), false});
  if (!font) return;
  world.window.SetDeskFont(font->name, font->size, font->bold);
  settings.Save(Setting::DeskFontName, font->name);
  settings.SaveNumber(Setting::DeskFontSize, font->size);
}

void WindowRule::Press(int deadlineSeconds) {
  ticks_ = 0;
  timer_ = parts_.world.loop.Every(kTickMilliseconds, [this, deadlineSeconds] {
    if (++ticks_ * kTickMilliseconds <= deadlineSeconds * 1000) return;
    const auto keep = std::move(timer_);
    auto& [screen, form, cursors, settings, world] = parts_;
    if (!world.window.IsActive()) return;
    form.Sabit = false;
    world.window.SetFixed(false);
    screen.SetBusy(false);
    world.window.Close();
  });
}

}  // namespace karvel
