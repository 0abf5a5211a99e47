// The due dates of customers (VadeGün): one row a customer and day, with the amount that fell due on it. All changes are made within the
// action of the posting that makes them: a row that can't be read or written fails that action.
#pragma once

#include <string>

#include "store/stores.h"
#include "text/date_time.h"

namespace karvel {

// Adds to what falls due on the day of this moment.
void AddDue(Stores& stores, const std::string& customerCode, const DateTime& moment, double amount);

// What a payment leaves of the due dates. A settled balance clears them all. Otherwise at most two rows are used up, the earliest first:
// what spans three or more leaves the second below zero.
void ConsumeDue(Stores& stores, const std::string& customerCode, double amount, bool balanceIsNothing);

// Takes an amount off the earliest day, which goes when nothing is left of it. An amount of 0 changes nothing.
void ShrinkEarliestDue(Stores& stores, const std::string& customerCode, double amount);

}  // namespace karvel
