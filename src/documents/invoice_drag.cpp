#include "documents/invoice_drag.h"

#include <algorithm>
#include <utility>

#include "books/steps.h"
#include "platform/window.h"

namespace karvel {
namespace {

const Steps step("InvoiceDrag");
constexpr int kRowsKept = 2;  // of a page, so that the eye finds its place

}  // namespace

InvoiceDrag::InvoiceDrag(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), lines_(parts.cursors.HareketData), world_(parts.world) {
  GridElement& grid = screen_.FatGrid;
  connections_ += grid.mouseDown.Connect([this](const MouseEvent& event) {
    down_ = event.button == 1;
    pressedAt_ = movedTo_ = event.y;
  });
  connections_ += grid.mouseMove.Connect([this](const MouseEvent& event) { movedTo_ = event.y; });
  connections_ += grid.released.Connect([this] { Released(); });
}

int InvoiceDrag::RowUnder(int y) const {
  return y / std::max(1, world_.window.RowHeight(screen_.FatGrid.Name()));
}

void InvoiceDrag::Released() {
  if (!std::exchange(down_, false) || !screen_.FatFrame.Visible() || !lines_.HasRows()) return;
  const int pressed = RowUnder(pressedAt_), moved = RowUnder(movedTo_);
  if (pressed == moved) return;
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  const int rows = RowUnder(world_.window.InnerHeight(screen_.FatGrid.Name())) - kRowsKept;
  if (moved > pressed) {
    MoveBack(rows);
  } else {
    MoveOn(rows);
  }
}

void InvoiceDrag::MoveBack(int rows) {
  for (int i = 0; i < rows && !lines_.Bof(); ++i) step("previous line", lines_.MovePrevious());
  if (lines_.Bof()) step("first line", lines_.MoveFirst());
}

void InvoiceDrag::MoveOn(int rows) {
  for (int i = 0; i < rows && !lines_.Eof(); ++i) step("next line", lines_.MoveNext());
  if (lines_.Eof()) step("last line", lines_.MoveLast());
}

}  // namespace karvel
