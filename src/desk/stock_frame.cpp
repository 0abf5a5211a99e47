#include "desk/stock_frame.h"

#include <fmt/format.h>

#include <cmath>

namespace karvel {
namespace {

constexpr int kUnits = 15;  // of the kept place, to a pixel

int Pixels(double units) {
  return static_cast<int>(std::lround(units / kUnits));
}

}  // namespace

StockFrame::StockFrame(const DeskParts& parts) : screen_(parts.screen), settings_(parts.settings), frame_(parts.screen.stkPlace) {
  ShowHandles(false);
  connections_ += screen_.StkFrame.mouseDown.Connect([this](const MouseEvent& event) { Press(event); });
  connections_ += screen_.StkFrame.altered.Connect([this] {
    if (!screen_.StkFrame.Visible()) ShowHandles(false);
  });
  for (int i = 0; i < screen_.handle.Count(); ++i) {
    Element& handle = screen_.handle(i);
    connections_ += handle.mouseDown.Connect([this, i](const MouseEvent& event) {
      if (event.button == 1) handles_.Press(i, event.x, event.y);
    });
    connections_ += handle.mouseMove.Connect([this](const MouseEvent& event) { Draw(event); });
    connections_ += handle.mouseUp.Connect([this](const MouseEvent& event) {
      if (event.button == 1) handles_.Release();
    });
  }
}

void StockFrame::ReadPlace() {
  if (settings_.Get(Setting::StockFrameLeft).empty() || settings_.Get(Setting::StockFrameTop).empty()) return;
  const int left = Pixels(settings_.GetNumber(Setting::StockFrameLeft)), top = Pixels(settings_.GetNumber(Setting::StockFrameTop));
  const WindowSize usual = frame_.Sizes().usual;
  frame_.TakeKept(fmt::format("{} {} {} {}", left, top, usual.width, usual.height));
}

void StockFrame::Press(const MouseEvent& event) {
  if (event.button == 2) {
    ShowHandles(true);
  } else if (event.button == 1) {
    ShowHandles(false);
    KeepPlace();
  }
}

void StockFrame::Draw(const MouseEvent& event) {
  if (event.button != 1) return;
  const WindowSize room = frame_.Around().room, least = frame_.Sizes().least;
  const auto box =
      handles_.Move(frame_.Box(), event.x, event.y,
                    {.roomWidth = room.width, .roomHeight = room.height, .leastWidth = least.width, .leastHeight = least.height});
  if (box) frame_.Put(*box);
}

void StockFrame::ShowHandles(bool shown) {
  for (int i = 0; i < screen_.handle.Count(); ++i) screen_.handle(i).SetVisible(shown);
}

void StockFrame::KeepPlace() {
  settings_.SaveNumber(Setting::StockFrameLeft, frame_.Box().left * kUnits);
  settings_.SaveNumber(Setting::StockFrameTop, frame_.Box().top * kUnits);
}

}  // namespace karvel
