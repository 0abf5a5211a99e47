// What the list at rest shows: customers, stock cards and the day book take turns on its cursor.
#pragma once

#include "desk/screen.h"

namespace karvel {

// False while it shows stock cards or the day's turnover.
inline bool ListsCustomers(const Screen& screen) {
  return !screen.StokChk.Checked() && !screen.CiroChk.Checked();
}

}  // namespace karvel
