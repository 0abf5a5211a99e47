#include "desk/customer_search.h"

#include "books/sources.h"
#include "books/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("FindCustomerByText");
}

bool FindCustomerByText(Cursor& list, const std::string& text) {
  const std::string dotted = ReplaceAll(text, "İ", "i");
  for (const std::string& criteria :
       {"Unvan Like '" + text + "*'", "KartNo='" + text + "'", "Unvan Like '" + dotted + "*'",
        "Unvan Like '" + ReplaceAll(dotted, "I", "ı") + "*'", "Unvan Like " + sources::Quoted(AnyKindOfI(text) + "*")}) {
    step("find customer", list.FindFirst(criteria));
    if (!list.NoMatch()) return true;
  }
  return false;
}

}  // namespace karvel
