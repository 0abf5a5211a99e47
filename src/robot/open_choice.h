// The list of a combo or the calendar of a date, opened and tapped as by a finger.
#pragma once

class QWidget;

namespace karvel {

// Whether a tap on this widget opens a list or a calendar over the desk.
[[nodiscard]] bool OpensChoice(const QWidget* widget);

// Whether what is open over the desk is this widget's.
[[nodiscard]] bool IsOpenListOf(const QWidget& widget);

// Taps a cell of the list or calendar that is open, as it is seen: rows and columns from 0, a calendar's first row the names of the days.
// false when there is no such cell or nothing is open.
bool TapInOpenList(int row, int column);

}  // namespace karvel
