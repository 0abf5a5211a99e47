#include "touch/floating_window.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace karvel {
namespace {

constexpr int kMargin = 8;       // what the widest window leaves of the room: 120 screen units
constexpr int kDistance = 4;     // between a window and what it stands beside
constexpr int kNarrowest = 560;  // a window that shows keys side by side gives up so much of its width, so as not to cover anything

int Scaled(int base, double scale) {
  return static_cast<int>(base * scale + 0.5);
}

int RoundedDown(int length) {
  return length - length % kFloatingStep;
}

bool Inside(const WindowBox& box, const WindowSize& room) {
  return box.left >= 0 && box.top >= 0 && box.Right() <= room.width && box.Bottom() <= room.height;
}

// The free place of this size that lies nearest to the lower left; none where every one covers something.
std::optional<WindowBox> FreePlace(const WindowSize& size, const Surroundings& around, bool sparesButton) {
  const auto& [room, field, button, scale] = around;
  const std::array lefts{0,
                         room.width - size.width,
                         field.left - size.width - kDistance,
                         field.Right() + kDistance,
                         button.left - size.width - kDistance,
                         button.Right() + kDistance};
  const std::array tops{room.height - size.height, button.top - size.height - kDistance, field.Bottom() + kDistance,
                        field.top - size.height - kDistance, 0};
  std::optional<WindowBox> best;
  const auto farness = [&room](const WindowBox& box) {
    return static_cast<std::int64_t>(room.height - box.Bottom()) * 2 + box.left;  // a list is read from its top
  };
  for (const int left : lefts) {
    for (const int top : tops) {
      const WindowBox box{left, top, size.width, size.height};
      if (!Inside(box, room) || Overlap(box, field) || (sparesButton && Overlap(box, button))) continue;
      if (!best || farness(box) < farness(*best)) best = box;
    }
  }
  return best;
}

}  // namespace

bool Overlap(const WindowBox& a, const WindowBox& b) {
  if (a.IsEmpty() || b.IsEmpty()) return false;
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

WindowSize FittedSize(const WindowSize& wanted, const FloatingSizes& sizes, const WindowSize& room, double scale) {
  const WindowSize least{Scaled(sizes.least.width, scale), Scaled(sizes.least.height, scale)};
  WindowSize size = wanted;
  if (size.height > room.height || size.height < least.height) size.height = least.height;
  if (size.width > room.width || size.width < least.width) size.width = sizes.widens ? room.width - kMargin : least.width;
  return {RoundedDown(std::min(size.width, room.width)), RoundedDown(std::min(size.height, room.height))};
}

WindowBox KeptInside(WindowBox box, const WindowSize& room) {
  box.left = std::max(0, std::min(box.left, room.width - box.width));
  box.top = std::max(0, std::min(box.top, room.height - box.height));
  return box;
}

WindowBox FloatingPlace(const std::optional<WindowBox>& chosen, const FloatingSizes& sizes, const Surroundings& around) {
  WindowSize usual{Scaled(sizes.usual.width, around.scale), Scaled(sizes.usual.height, around.scale)};
  const int beside = around.button.IsEmpty() ? around.room.width : around.button.left - kDistance;
  usual.width = std::max(usual.width, std::min(beside, Scaled(sizes.ample, around.scale)));
  WindowSize size = FittedSize(chosen ? WindowSize{chosen->width, chosen->height} : usual, sizes, around.room, around.scale);
  if (chosen) {
    const WindowBox kept = KeptInside({chosen->left, chosen->top, size.width, size.height}, around.room);
    if (!Overlap(kept, around.field)) return kept;
  }
  if (const auto place = FreePlace(size, around, true)) return *place;
  // As many keys side by side, but narrower ones.
  if (sizes.widens) {
    for (const int width : {sizes.least.width, kNarrowest}) {
      if (width >= size.width) continue;
      if (const auto place = FreePlace({width, size.height}, around, true)) return *place;
    }
  }
  const WindowSize least = FittedSize({0, 0}, {.least = sizes.least}, around.room, around.scale);
  if (const auto place = FreePlace(least, around, true)) return *place;
  if (const auto place = FreePlace(size, around, false)) return *place;
  if (const auto place = FreePlace(least, around, false)) return *place;
  return KeptInside({0, around.room.height - size.height, size.width, size.height}, around.room);
}

}  // namespace karvel
