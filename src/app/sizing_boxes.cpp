#include "app/sizing_boxes.h"

#include <array>

#include "app/element_binding.h"
#include "touch/sizing_handles.h"

namespace karvel {
namespace {

constexpr int kTaken = 56, kSeen = 20;  // pixels that take a finger, and that are painted
constexpr std::array kPointers{Qt::SizeFDiagCursor, Qt::SizeVerCursor,   Qt::SizeBDiagCursor, Qt::SizeHorCursor, Qt::SizeFDiagCursor,
                               Qt::SizeVerCursor,   Qt::SizeBDiagCursor, Qt::SizeHorCursor,   Qt::SizeAllCursor};

}  // namespace

SizingBoxes::SizingBoxes(DeskUi& ui, QWidget* parent) : QObject(parent), ui_(ui) {
  Screen& screen = ui.screen;
  for (int i = 0; i < screen.handle.Count(); ++i) {
    QWidget& box = *ui.widgets.value(&screen.handle(i));
    box.setParent(parent);
    Dress(i, box);
    ElementBinding::Of(&box)->SetPlaced([&screen] { return screen.StkFrame.IsShown(); });
    connections_ += screen.handle(i).altered.Connect([this] { Place(); });
  }
  connections_ += ui.theme.changed.Connect([this] {
    for (int i = 0; i < ui_.screen.handle.Count(); ++i) Dress(i, *ui_.widgets.value(&ui_.screen.handle(i)));
    Place();
  });
  connections_ += screen.stkPlace.changed.Connect([this] { Place(); });
}

void SizingBoxes::Dress(int index, QWidget& box) const {
  box.setCursor(kPointers.at(static_cast<std::size_t>(index)));
  box.setStyleSheet(QStringLiteral("background: %1; border: 2px solid %2; border-radius: 5px; margin: %3px;")
                        .arg(palette::kAccent.name(), palette::kBackground.name())
                        .arg(ui_.theme.Px((kTaken - kSeen) / 2)));
}

void SizingBoxes::Place() {
  const auto places = SizingHandles::Around(ui_.screen.stkPlace.Box(), ui_.theme.Px(kTaken), ui_.screen.stkPlace.Around().room);
  for (int i = 0; i < ui_.screen.handle.Count(); ++i) {
    QWidget& box = *ui_.widgets.value(&ui_.screen.handle(i));
    const WindowBox& place = places.at(static_cast<std::size_t>(i));
    box.setGeometry(place.left, place.top, place.width, place.height);
    box.raise();
  }
}

}  // namespace karvel
