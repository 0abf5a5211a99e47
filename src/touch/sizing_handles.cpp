#include "touch/sizing_handles.h"

#include <algorithm>

namespace karvel {
namespace {

// What a handle does to one direction of the panel.
enum class Pull { None, Start, End, Both };
struct Pulls {
  Pull across, down;
};

constexpr std::array<Pulls, SizingHandles::kCount> kPulls{{{Pull::Start, Pull::Start},
                                                           {Pull::None, Pull::Start},
                                                           {Pull::End, Pull::Start},
                                                           {Pull::End, Pull::None},
                                                           {Pull::End, Pull::End},
                                                           {Pull::None, Pull::End},
                                                           {Pull::Start, Pull::End},
                                                           {Pull::Start, Pull::None},
                                                           {Pull::Both, Pull::Both}}};

// One direction of a panel.
struct Span {
  int start, length;
};

Span Pulled(Span span, Pull pull, int by, int room, int least) {
  const int end = span.start + span.length;
  switch (pull) {
    case Pull::None:
      return span;
    case Pull::Start: {
      const int start = std::clamp(span.start + by, 0, std::max(0, end - least));
      return {start, end - start};
    }
    case Pull::End: {
      const int newEnd = std::clamp(end + by, std::min(span.start + least, room), room);
      return {span.start, newEnd - span.start};
    }
    case Pull::Both:
      return {std::clamp(span.start + by, 0, std::max(0, room - span.length)), span.length};
  }
  return span;
}

// Where a handle's middle stands on one direction of the panel.
int Middle(Span span, Pull pull) {
  if (pull == Pull::Start) return span.start;
  if (pull == Pull::End) return span.start + span.length;
  return span.start + span.length / 2;
}

}  // namespace

std::array<WindowBox, SizingHandles::kCount> SizingHandles::Around(const WindowBox& panel, int size, const WindowSize& room) {
  std::array<WindowBox, kCount> handles;
  for (std::size_t i = 0; i < handles.size(); ++i) {
    const int x = Middle({panel.left, panel.width}, kPulls[i].across);
    const int y = Middle({panel.top, panel.height}, kPulls[i].down);
    handles[i] = KeptInside({x - size / 2, y - size / 2, size, size}, room);
  }
  return handles;
}

WindowBox SizingHandles::Drawn(const WindowBox& panel, int handle, int dx, int dy, const Limits& limits) {
  const Pulls pulls = kPulls.at(static_cast<std::size_t>(handle));
  const Span across = Pulled({panel.left, panel.width}, pulls.across, dx, limits.roomWidth, limits.leastWidth);
  const Span down = Pulled({panel.top, panel.height}, pulls.down, dy, limits.roomHeight, limits.leastHeight);
  return {across.start, down.start, across.length, down.length};
}

void SizingHandles::Press(int handle, int x, int y) {
  held_ = Held{handle, x, y};
}

std::optional<WindowBox> SizingHandles::Move(const WindowBox& panel, int x, int y, const Limits& limits) const {
  if (!held_ || (x == held_->x && y == held_->y)) return std::nullopt;
  return Drawn(panel, held_->handle, x - held_->x, y - held_->y, limits);
}

}  // namespace karvel
