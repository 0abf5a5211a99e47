#include "desk/long_press.h"

#include "platform/event_loop.h"
#include "platform/window.h"

namespace karvel {
namespace {
constexpr int kTickMilliseconds = 250;
constexpr int kExitSeconds = 4, kHeadingSeconds = 2;
constexpr int kHeadingHeight = 44;  // pixels from the top of a grid that take the long press
constexpr int kLeftButton = 1;
}  // namespace

LongPress::LongPress(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), world_(parts.world) {
  connections_ += screen_.Command3.mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == kLeftButton) Begin(kExitSeconds);
  });
  connections_ += screen_.Command3.mouseUp.Connect([this](const MouseEvent&) { End(); });
  for (GridElement* const grid : {&screen_.CariGrid, &screen_.StokGrid, &screen_.HareketGrid}) {
    connections_ += grid->mouseDown.Connect([this](const MouseEvent& event) {
      if (event.button == kLeftButton && event.y < kHeadingHeight) Begin(kHeadingSeconds);
    });
    connections_ += grid->released.Connect([this] { End(); });
  }
}

void LongPress::Begin(int deadlineSeconds) {
  ticks_ = 0;
  timer_ = world_.loop.Every(kTickMilliseconds, [this, deadlineSeconds] {
    if (++ticks_ * kTickMilliseconds <= deadlineSeconds * 1000) return;
    const auto keep = std::move(timer_);
    CloseDesk();
  });
}

void LongPress::CloseDesk() {
  if (!world_.window.IsActive()) return;
  form_.Sabit = false;
  world_.window.SetFixed(false);
  screen_.SetBusy(false);
  world_.window.Close();
}

}  // namespace karvel
