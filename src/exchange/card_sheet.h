// Cards as they stand in a spreadsheet: its headings understood, its cells read, and every fault named by line and column. The stores are
// not asked.
#pragma once

#include <vector>

#include "exchange/card_columns.h"
#include "exchange/sheet.h"
#include "store/value.h"

namespace karvel {

struct SheetCard {
  int line = 0;
  // One for each of the columns in use; Null where the cell is empty, which leaves the card as it is.
  std::vector<Value> values;
};

struct CardSheet {
  struct UsedColumn {
    const CardColumn* column;
    int sheetColumn;  // from 0
    int position;     // in the table
  };

  const CardKind* kind = nullptr;  // null where the headings tell neither
  std::vector<UsedColumn> columns;
  std::vector<SheetCard> cards;
  std::vector<SheetFault> faults;  // by line and column

  // Which of the columns in use holds this field; -1 for none.
  [[nodiscard]] int IndexOf(std::string_view field) const;
  [[nodiscard]] const Table& Columns() const;
};

// By line, then by column.
void SortFaults(std::vector<SheetFault>& faults);

// Reads cards of stock where there is a heading "Stok Kodu", of customers where there is "Cari Kodu".
CardSheet ReadCardSheet(const Sheet& sheet);

}  // namespace karvel
