// Where a small window stands inside the desk's window: the place that the clerk chose, and the one at which it is shown so that it covers
// nothing that it serves. The window tells what lies around; the clerk's keys and fingers move and size.
//
// What stays true: only what the clerk did is kept, never a shift that keeps a field in view; a fixed frame doesn't move for him.
#pragma once

#include <optional>
#include <string>

#include "platform/signal.h"
#include "touch/floating_window.h"

namespace karvel {

// The keyboard: 10350 by 3750 screen units below its strip, so that a key of its four rows has 56 pixels.
inline constexpr FloatingSizes kKeyboardSizes{.least = {690, 300}, .usual = {690, 300}, .widens = true, .ample = 960};
// The pad: 3945 by 6030 screen units.
inline constexpr FloatingSizes kPadSizes{.least = {262, 402}, .usual = {262, 402}};

// The stock picker of an invoice.
inline constexpr FloatingSizes kStockFrameSizes{.least = {260, 200}, .usual = {420, 420}};

class Element;

class FloatingFrame {
 public:
  explicit FloatingFrame(const FloatingSizes& sizes) : sizes_(sizes) {}

  // As it is shown.
  [[nodiscard]] const WindowBox& Box() const { return box_; }
  [[nodiscard]] const FloatingSizes& Sizes() const { return sizes_; }
  [[nodiscard]] const Surroundings& Around() const { return around_; }
  void SetFixed(bool fixed) { fixed_ = fixed; }
  [[nodiscard]] bool IsFixed() const { return fixed_; }

  // The field that it types into; null for none. Whoever shows the window then lays it anew.
  void Serve(const Element* field);
  [[nodiscard]] const Element* Served() const { return served_; }
  Signal<> servedChanged;

  // What lies around it now: it moves where it would cover the field, or would not be wholly in sight.
  void LayAmong(const Surroundings& around);

  // The clerk's own doing. Nothing happens in a fixed frame.
  void MoveBy(int dx, int dy);
  void SizeBy(int dw, int dh);
  void Put(const WindowBox& wanted);

  // What the clerk chose, as the text that is kept ("left top width height"); "" for nothing. A text that tells no place changes nothing.
  [[nodiscard]] std::string Kept() const;
  void TakeKept(const std::string& text);

  Signal<> changed;

 private:
  void Show(const WindowBox& box);

  const FloatingSizes sizes_;
  Surroundings around_;
  std::optional<WindowBox> chosen_;
  WindowBox box_;
  const Element* served_ = nullptr;
  bool fixed_ = false;
};

}  // namespace karvel
