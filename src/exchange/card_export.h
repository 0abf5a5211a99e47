// The shop's cards as a spreadsheet, with the headings under which they are read again.
#pragma once

#include <vector>

#include "exchange/card_columns.h"
#include "exchange/sheet.h"
#include "platform/status.h"
#include "store/stores.h"

namespace karvel {

// All cards of a kind, the hidden ones too, in the order in which they were made; not the shop's own money accounts.
Status ExportCards(Stores& stores, const CardKind& kind, Sheet& sheet);

// Which columns of it are numbers.
std::vector<bool> NumberColumns(const CardKind& kind);

}  // namespace karvel
