// What the list at rest shows: its cursor serves customers, stock cards and the day book in turn.
#pragma once

#include "desk/screen.h"

namespace karvel {

// Customers, not stock cards, nor the day's turnover.
inline bool ListsCustomers(const Screen& screen) {
  return !screen.StokChk.Checked() && !screen.CiroChk.Checked();
}

}  // namespace karvel
