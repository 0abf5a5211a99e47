// Numbers and dates as the desk shows and reads them. The locale is Turkish whatever the machine's:
// "," decimal, "." thousands, dd.mm.yyyy, Turkish month and day names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/date_time.h"

namespace karvel {

// Formats a number by a named format ("Standard", "General Number") or a pattern ("#,##0", "#,##0.00", "00", "000000",
// "0000000000", "10000000000", "##0.00####"). In a pattern "," groups and "." is the decimal point, and the result uses
// the Turkish signs. A leading literal digit in a pattern such as "10000000000" stands for itself: the digits 1 to 9 are literals.
// Halves are rounded away from zero, on the decimal value that the number shows (15 digits).
std::string Format(double value, std::string_view pattern);
// Formats a date: "Short Date" (dd.mm.yyyy) or a pattern of dd, d, mm, m, mmmm, yyyy, yy, dddd, hh, nn, ss ("mm" after "hh" is minutes).
std::string Format(const DateTime& value, std::string_view pattern);
// Formats a text as a number where it is one; a text that isn't a number comes back as it is.
std::string Format(std::string_view text, std::string_view pattern);

// Plain text of a number: up to 15 digits, "," decimal, no grouping; "0" for zero. What a text box shows when a number is put in it.
std::string PlainNumber(double value);
// A number with "." and no grouping, shortest form that reads back the same: for criteria and files.
std::string CriteriaNumber(double value);

// Reads a number as the desk does: blanks around it, one sign, "." groups taken out, "," decimal. "1.250,75" is 1250.75.
// Empty or anything else: nothing.
std::optional<double> ReadNumber(std::string_view text);
bool IsNumeric(std::string_view text);
// ReadNumber, with 0 for what isn't a number.
double NumberOrZero(std::string_view text);
// "True", "Doğru" (ignoring case) and every number but 0 are true; anything else is false.
bool ReadBoolean(std::string_view text);
// Rounds to a number of decimals, halves to even on the decimal value: the rounding of the balances.
double RoundTo(double value, int decimals);

}  // namespace karvel
