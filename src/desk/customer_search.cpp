#include "desk/customer_search.h"

#include "books/sources.h"
#include "text/turkish.h"

namespace karvel {

Status FindCustomerByText(Cursor& list, const std::string& text) {
  const std::string dotted = ReplaceAll(text, "İ", "i");
  Status found(ErrorKind::NoRecord, "nobody");
  for (const std::string& criteria :
       {"Unvan Like '" + text + "*'", "KartNo='" + text + "'", "Unvan Like '" + dotted + "*'",
        "Unvan Like '" + ReplaceAll(dotted, "I", "ı") + "*'", "Unvan Like " + sources::Quoted(AnyKindOfI(text) + "*")}) {
    found = list.FindFirst(criteria);
    // What was typed may be no criterion, as with a quote in it.
    if (found.Kind() != ErrorKind::NoRecord && found.Kind() != ErrorKind::BadText) return found;
  }
  return found;
}

}  // namespace karvel
