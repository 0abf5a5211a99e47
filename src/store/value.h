// One field's content: number, text, date or boolean, as the catalogue tells its type. monostate is a Null that another program left.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "text/date_time.h"

namespace karvel {

using Value = std::variant<std::monostate, double, std::string, bool, DateTime>;
using Row = std::vector<Value>;  // in catalogue order

// What is shown in the place of a number that is none: 0 would look right.
inline constexpr std::string_view kDamagedNumber = "#bozuk";
// Whether a number field can hold it: a finite number, a text that reads as one, or nothing.
bool IsNumberOrNothing(const Value& value);

// Readings that never fail: a Null is 0, "", false or the empty date. A number in a text is read by the desk's locale.
double AsNumber(const Value& value);
// Numbers as PlainNumber, dates as dd.mm.yyyy hh:mm:ss (dd.mm.yyyy at midnight), booleans as "True" or "False".
std::string AsText(const Value& value);
// True for a number that is not 0, for a text that means yes, and for any date.
bool AsBoolean(const Value& value);
// Numbers as days since 1899-12-30, texts in any form that the desk reads; the empty date for what is none.
DateTime AsDate(const Value& value);

}  // namespace karvel
