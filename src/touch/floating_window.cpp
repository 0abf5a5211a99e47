#include "touch/floating_window.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace karvel {
namespace {

constexpr int kMargin = 8;    // what the widest window leaves of the room: 120 screen units
constexpr int kDistance = 4;  // between a window and what it stands beside
// A window that shows keys side by side gives up so much of its width, so as not to cover anything; less where it is drawn smaller.
constexpr int kNarrowest = 560;

int Scaled(int base, double scale) {
  return static_cast<int>(base * scale + 0.5);
}

int Narrowest(double scale) {
  return Scaled(kNarrowest, std::min(1.0, scale));
}

int RoundedDown(int length) {
  return length - length % kFloatingStep;
}

bool Inside(const WindowBox& box, const WindowSize& room) {
  return box.left >= 0 && box.top >= 0 && box.Right() <= room.width && box.Bottom() <= room.height;
}

// Rounded like every size: one that was laid as the least isn't below it.
WindowSize Least(const FloatingSizes& sizes, double scale) {
  return {RoundedDown(Scaled(sizes.least.width, scale)), RoundedDown(Scaled(sizes.least.height, scale))};
}

// A window that made itself narrower than the least, and was then moved, stays as it stands.
WindowSize ChosenSize(const WindowBox& chosen, const FloatingSizes& sizes, const WindowSize& room, double scale) {
  WindowSize size = FittedSize({chosen.width, chosen.height}, sizes, room, scale);
  if (sizes.widens && chosen.width >= RoundedDown(Narrowest(scale))) size.width = RoundedDown(std::min(chosen.width, size.width));
  return size;
}

// What a place leaves free besides the field, from all of it to nothing.
enum class Spared { Card, Keys, Button, Nothing };

// The free place of this size that lies nearest to the lower left; none where every one covers something.
std::optional<WindowBox> FreePlace(const WindowSize& size, const Surroundings& around, Spared spared) {
  const WindowSize& room = around.room;
  std::vector<WindowBox> taken{around.field};
  if (spared != Spared::Nothing) taken.push_back(around.button);
  if (spared == Spared::Card) taken.push_back(around.card);
  if (spared == Spared::Keys) taken.push_back(around.keys);
  std::erase_if(taken, [](const WindowBox& box) { return box.IsEmpty(); });
  std::vector<int> lefts{0, room.width - size.width}, tops{room.height - size.height, 0};
  for (const WindowBox& box : taken) {
    lefts.insert(lefts.end(), {box.left - size.width - kDistance, box.Right() + kDistance});
    tops.insert(tops.end(), {box.top - size.height - kDistance, box.Bottom() + kDistance});
  }
  std::optional<WindowBox> best;
  const auto farness = [&room](const WindowBox& box) {
    return static_cast<std::int64_t>(room.height - box.Bottom()) * 2 + box.left;  // a list is read from its top
  };
  for (const int left : lefts) {
    for (const int top : tops) {
      const WindowBox box{left, top, size.width, size.height};
      if (!Inside(box, room) || std::ranges::any_of(taken, [&box](const WindowBox& other) { return Overlap(box, other); })) continue;
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
  const WindowSize least = Least(sizes, scale);
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
  WindowSize size = chosen ? ChosenSize(*chosen, sizes, around.room, around.scale) : FittedSize(usual, sizes, around.room, around.scale);
  // Beside the button it stands at the bottom, and leaves the list in one piece.
  if (!chosen && sizes.widens && beside >= Narrowest(around.scale)) size.width = RoundedDown(std::min(size.width, beside));
  if (chosen) {
    const WindowBox kept = KeptInside({chosen->left, chosen->top, size.width, size.height}, around.room);
    if (!Overlap(kept, around.field)) return kept;
  }
  if (const auto place = FreePlace(size, around, Spared::Card)) return *place;
  const WindowSize least = FittedSize({0, 0}, {.least = sizes.least}, around.room, around.scale);
  for (const Spared spared : {Spared::Keys, Spared::Button, Spared::Nothing}) {
    if (const auto place = FreePlace(size, around, spared)) return *place;
    // As many keys side by side, but narrower ones.
    if (sizes.widens && spared != Spared::Nothing) {
      for (const int width : {sizes.least.width, kNarrowest}) {
        if (width >= size.width) continue;
        if (const auto place = FreePlace({width, size.height}, around, spared)) return *place;
      }
    }
    if (const auto place = FreePlace(least, around, spared)) return *place;
  }
  return KeptInside({0, around.room.height - size.height, size.width, size.height}, around.room);
}

}  // namespace karvel
