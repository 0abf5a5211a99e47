// The robot's hand: mouse and key events as the window system delivers them, sent to the real widgets.
// Every call returns when the handlers of its events have returned.
#pragma once

#include <QPoint>

#include "robot/key_names.h"

class QWidget;

namespace karvel {

enum class Tap { Click, Double, Right, Press, Release };

// On the innermost widget that lies at the point of `widget`.
void TapAt(QWidget& widget, const QPoint& point, Tap tap);
void TapCenter(QWidget& widget, Tap tap);

// One press and release, to the widget that has the focus when each comes; `otherwise` gets them where none has.
void Strike(const KeyStroke& stroke, QWidget& otherwise);

// Lets everything run that waits now: queued works, painting, focus changes.
void Settle();

// Closes open pop-up menus and lists, as a tap beside them does.
void ClosePopUps();

}  // namespace karvel
