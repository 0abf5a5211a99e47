// Whose code counts for prices and sums: in a sale its customer's, whatever row the list stands on; at rest that of the row in front.
#pragma once

#include <string>

#include "desk/captions.h"
#include "desk/cursors.h"
#include "desk/form_state.h"

namespace karvel {

inline std::string ServedCode(const Screen& screen, const FormState& form, const Cursors& cursors) {
  return AtRest(screen) ? cursors.CariData.Text("CariKod") : form.CurrentCustomerCode;
}

}  // namespace karvel
