// The robot's hand: mouse and key events as the window system delivers them, sent to the real widgets.
// Every call returns when the handlers of its events have returned.
#pragma once

#include <QPoint>
#include <vector>

#include "robot/key_names.h"

class QWidget;

namespace karvel {

enum class Tap { Click, Double, Right, Press, Release };

// On the innermost widget that lies at the point of `widget`.
void TapAt(QWidget& widget, const QPoint& point, Tap tap);
void TapCenter(QWidget& widget, Tap tap);

// Where a finger takes hold of a widget to drag it: of a card its margin, of anything else its middle.
[[nodiscard]] QPoint GripOf(const QWidget& widget);
// Down at the point of `widget`, moved in a few steps, and up.
void DragBy(QWidget& widget, const QPoint& point, const QPoint& way);

// One press and one release, each to the widget that has the focus at that moment; where none has, to `otherwise`.
// `stamp`: the time stamp of the events, in milliseconds; 0: none.
void Strike(const KeyStroke& stroke, QWidget& otherwise, quint64 stamp = 0);

// One key after another, a millisecond apart by their time stamps, as a scanner types that presents itself as a keyboard.
void TypeFast(const std::vector<KeyStroke>& strokes, QWidget& otherwise);

// Lets everything run that waits now: queued calls, painting, focus changes.
void Settle();

// Closes open pop-up menus and lists, as a tap beside them does.
void ClosePopUps();

}  // namespace karvel
