// The end of a customer: his history is wiped, and then, on a clean card, the card itself is deleted. His due dates stay, and so do the
// money accounts' rows of what he paid.
#pragma once

#include <string>

#include "books/shop.h"
#include "store/row.h"

namespace karvel {

// His ledger rows, his sales among the stock movements and his day book go, cancelled lines included; his card is left with no balance.
// Goods go back on stock only where an item has the very code of the customer. A movement that was no sale stays as it is.
// NoRecord when his card is gone.
Status WipeCustomer(const Shop& shop, const std::string& customerCode);

// Deletes his clean card; his due dates and the lines of the day book stay. NoRecord, and nothing changes, when it is gone already or is
// clean no more: another terminal has posted to him since he was looked up, and his debt must not go with the card.
Status DeleteCustomerCard(const Shop& shop, RowKey card);

}  // namespace karvel
