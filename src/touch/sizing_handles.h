// Nine boxes around a panel, by which the clerk moves and sizes it: the corners and the middles of the edges, and the panel's body.
//
//   0 ── 1 ── 2
//   │         │
//   7    8    3
//   │         │
//   6 ── 5 ── 4
//
// Pixels of the window that holds the panel. Whatever a handle does, the panel stays inside its room and no smaller than its least size.
#pragma once

#include <array>
#include <optional>

#include "touch/floating_window.h"

namespace karvel {

class SizingHandles {
 public:
  static constexpr int kCount = 9, kBody = 8;
  struct Limits {
    int roomWidth = 0, roomHeight = 0;
    int leastWidth = 0, leastHeight = 0;
  };

  // Where the handles stand, each a square of this size with its middle on the corner or edge, or as near to it as the room lets it be; the
  // body's in the middle of the panel.
  [[nodiscard]] static std::array<WindowBox, kCount> Around(const WindowBox& panel, int size, const WindowSize& room);
  // The panel after its handle was drawn by (dx, dy).
  [[nodiscard]] static WindowBox Drawn(const WindowBox& panel, int handle, int dx, int dy, const Limits& limits);

  // A finger on a handle, at this place inside it.
  void Press(int handle, int x, int y);
  // The finger moved to this place inside the handle: the panel's new box, or nothing for less than a pixel or where no handle is held.
  // The handle goes along, so the place that counts stays the one where it was pressed.
  [[nodiscard]] std::optional<WindowBox> Move(const WindowBox& panel, int x, int y, const Limits& limits) const;
  void Release() { held_.reset(); }

 private:
  struct Held {
    int handle, x, y;
  };
  std::optional<Held> held_;
};

}  // namespace karvel
