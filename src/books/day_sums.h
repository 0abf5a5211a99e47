// What was sold on a day, summed from the day book. A sum over no line is 0; so is one that can't be read, and the status says why.
#pragma once

#include <string>

#include "store/stores.h"
#include "text/date_time.h"

namespace karvel {

// GünBaşı and GünSonu: "Tarih>=#mm/dd/yyyy 00:00:00#", "Tarih<=#mm/dd/yyyy 23:59:59#".
std::string FromDay(const DateTime& day);
std::string UntilDay(const DateTime& day);
// Both, joined by " And ".
std::string DayCriteria(const DateTime& day);

// A customer's unpaid sales of a day, by his name.
Status SumUnpaidSales(Stores& stores, const std::string& customerName, const DateTime& day, double& sum);
// His sales of a day.
Status SumSales(Stores& stores, const std::string& customerCode, const DateTime& day, double& sum);
// Everything in his day book on a day.
Status SumDayBook(Stores& stores, const std::string& customerCode, const DateTime& day, double& sum);

}  // namespace karvel
