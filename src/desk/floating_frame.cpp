#include "desk/floating_frame.h"

#include <fmt/format.h>

#include <sstream>

namespace karvel {

void FloatingFrame::Serve(const Element* field) {
  if (field == served_) return;
  served_ = field;
  servedChanged();
}

void FloatingFrame::LayAmong(const Surroundings& around) {
  around_ = around;
  Show(FloatingPlace(chosen_, sizes_, around_));
}

void FloatingFrame::MoveBy(int dx, int dy) {
  Put({box_.left + dx, box_.top + dy, box_.width, box_.height});
}

void FloatingFrame::SizeBy(int dw, int dh) {
  Put({box_.left, box_.top, box_.width + dw, box_.height + dh});
}

void FloatingFrame::Put(const WindowBox& wanted) {
  if (fixed_) return;
  // What is only moved keeps its size, also one that it took by itself.
  const bool sized = wanted.width != box_.width || wanted.height != box_.height;
  const WindowSize size =
      sized ? FittedSize({wanted.width, wanted.height}, sizes_, around_.room, around_.scale) : WindowSize{box_.width, box_.height};
  chosen_ = KeptInside({wanted.left, wanted.top, size.width, size.height}, around_.room);
  Show(*chosen_);
}

std::string FloatingFrame::Kept() const {
  if (!chosen_) return {};
  return fmt::format("{} {} {} {}", chosen_->left, chosen_->top, chosen_->width, chosen_->height);
}

void FloatingFrame::TakeKept(const std::string& text) {
  std::istringstream words(text);
  WindowBox box;
  if (words >> box.left >> box.top >> box.width >> box.height && !box.IsEmpty()) chosen_ = box;
}

void FloatingFrame::Show(const WindowBox& box) {
  if (box == box_) return;
  box_ = box;
  changed();
}

}  // namespace karvel
