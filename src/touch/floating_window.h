// Where a small window stands over the desk's window: kept inside it, as large as fingers need, and beside what it serves. Pixels of the
// desk's window; a screen unit of the kept sizes is a fifteenth of one.
#pragma once

#include <optional>

namespace karvel {

struct WindowSize {
  int width = 0, height = 0;
  bool operator==(const WindowSize&) const = default;
};

struct WindowBox {
  int left = 0, top = 0, width = 0, height = 0;
  bool operator==(const WindowBox&) const = default;
  [[nodiscard]] int Right() const { return left + width; }
  [[nodiscard]] int Bottom() const { return top + height; }
  [[nodiscard]] bool IsEmpty() const { return width <= 0 || height <= 0; }
};

// What a key moves or sizes by, and what sizes are whole multiples of: 30 screen units.
inline constexpr int kFloatingStep = 2;

// Sizes of one kind of small window at scale 1.
struct FloatingSizes {
  WindowSize least{};
  WindowSize usual{};  // where the clerk has chosen none
  // Whether a width that can't be becomes the room's less a margin; else the least one.
  bool widens = false;
  // The widest that it takes by itself, where that covers nothing; 0: never more than the usual.
  int ample = 0;
};

// What lies around a small window when it is laid.
struct Surroundings {
  WindowSize room{};   // the desk's window
  WindowBox field{};   // what it types into; empty: nothing is served
  WindowBox button{};  // the main button
  WindowBox card{};    // the panel in front that has keys; empty: none is open
  WindowBox keys{};    // those keys
  double scale = 1;    // of fonts and targets
};

[[nodiscard]] bool Overlap(const WindowBox& a, const WindowBox& b);
// The size that may be: no smaller than fingers need, no larger than the room, and rounded down.
[[nodiscard]] WindowSize FittedSize(const WindowSize& wanted, const FloatingSizes& sizes, const WindowSize& room, double scale);
// Moved inside the room where it runs past an edge of it; one too large for it begins at the upper left.
[[nodiscard]] WindowBox KeptInside(WindowBox box, const WindowSize& room);
// The place for a window: `chosen` by the clerk where it doesn't cover the field, else the nearest to the lower left that covers neither
// the field nor the button, and of an open panel at least none of its keys. Where there is none so free, the keys go under it before the
// button, and the field never.
[[nodiscard]] WindowBox FloatingPlace(const std::optional<WindowBox>& chosen, const FloatingSizes& sizes, const Surroundings& around);

}  // namespace karvel
