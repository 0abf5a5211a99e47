// A table as a spreadsheet holds it, whatever the form of its file: rows of cells, the headings first.
#pragma once

#include <expected>
#include <string>
#include <vector>

namespace karvel {

struct SheetRow {
  int line = 0;  // as the spreadsheet counts it, from 1
  // Texts without blanks around them; numbers as the desk shows them ("12,5"). Empty ones at the end may be missing.
  std::vector<std::string> cells;
};

// What is wrong in a file, for whoever mends it there.
struct SheetFault {
  int line = 0;      // 0: the file as a whole
  int column = -1;   // from 0; -1: the line as a whole
  std::string what;  // a plain Turkish sentence

  bool operator==(const SheetFault&) const = default;
};

// Rows without any text are left out.
struct Sheet {
  std::vector<SheetRow> rows;
  std::vector<SheetFault> faults{};  // cells that hold neither text nor number, by line and column; they are empty in the rows
};

// A table, or why its file holds none.
using SheetOutcome = std::expected<Sheet, SheetFault>;

// A column as spreadsheets name it: A for 0, AA for 26.
std::string ColumnLetters(int column);

}  // namespace karvel
