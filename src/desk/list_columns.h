// The columns of CariGrid, which shows customers at rest and turns to stock cards. Amounts and quantities go by the desk's formats.
#pragma once

#include <vector>

#include "desk/element.h"
#include "desk/form_state.h"

namespace karvel {

std::vector<GridColumn> CustomerColumns(const FormState& form);
std::vector<GridColumn> StockStatusColumns(const FormState& form);

}  // namespace karvel
