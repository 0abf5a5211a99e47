// The columns under which cards stand in a spreadsheet: the headings are those of the desk's own lists and panels.
#pragma once

#include <span>
#include <string_view>

#include "store/catalogue.h"

namespace karvel {

// What may stand in a cell.
enum class CellKind {
  Text,
  Digits,    // a code, barcode or telephone number: a text, though a spreadsheet may take it for a number
  Price,     // 0 or more, with or without the sign of the currency
  Tax,       // percent, 0 to 100
  Count,     // 0 or more
  Quantity,  // below 0 for what was sold and isn't there
  YesNo,     // "Evet", "Hayır"
  Side,      // "Borç", "Alacak"
};

struct CardColumn {
  std::string_view heading;
  std::string_view field;
  CellKind kind;
  // What a card begins with. One that stands has moved since, and keeps what its postings made.
  bool opening = false;
};

// A kind of card: its table, and its columns in the order in which they are written. The first is the code.
struct CardKind {
  std::string_view file, table;
  std::string_view code, name;              // fields
  std::span<const std::string_view> alone;  // fields of which no two cards may hold the same text
  std::span<const CardColumn> columns;

  // The column under a heading, however it is spelled: case, kinds of i, dots and blanks don't count, and the field's own name will do.
  // Null for none.
  [[nodiscard]] const CardColumn* Find(std::string_view heading) const;
};

const CardKind& StockCardKind();
const CardKind& CustomerCardKind();

}  // namespace karvel
