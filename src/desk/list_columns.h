// The columns of the lists. Amounts and quantities go by the desk's formats.
#pragma once

#include <vector>

#include "desk/cursors.h"
#include "desk/form_state.h"
#include "desk/screen.h"

namespace karvel {

// Of CariGrid, which shows customers at rest and turns to stock cards.
std::vector<GridColumn> CustomerColumns(const FormState& form);
std::vector<GridColumn> StockStatusColumns(const FormState& form);
// The three lists of the desk and that of the invoice with their columns and cursors, the two of a sale hidden.
void LayOutLists(Screen& screen, const FormState& form, Cursors& cursors);

}  // namespace karvel
