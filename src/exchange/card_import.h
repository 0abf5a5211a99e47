// Cards from a spreadsheet into the stores: what a shop has when it begins, and new prices later.
//
// What stays true:
// - All of a file or nothing of it: one fault anywhere, and no card is written. All cards land in one commit.
// - A card is known by its code. One that stands takes what the file tells otherwise, field by field; an empty cell changes nothing.
// - What a card begins with (Kalan, Bakiye) counts for a new one alone: one that stands keeps what its postings made. So the same file once
//   more changes nothing.
// - No two cards get one barcode, one customer's name or one card number. What was so before and isn't touched stays.
#pragma once

#include <cstdint>
#include <vector>

#include "exchange/card_sheet.h"
#include "platform/status.h"
#include "store/stores.h"

namespace karvel {

struct CardImport {
  std::int64_t added = 0;
  std::int64_t changed = 0;
  std::int64_t same = 0;
  std::int64_t groups = 0;           // new ones
  std::int64_t openingsPassed = 0;   // cards that stand, and have moved away from what the file begins them with
  std::vector<SheetFault> faults{};  // by line and column; with any of them nothing is written
};

enum class ImportMode { Try, Write };

// Tells what came of it, or with Try what would. Each of the sheet's own faults is among the faults.
Status ImportCards(Stores& stores, const CardSheet& sheet, ImportMode mode, CardImport& result);

}  // namespace karvel
