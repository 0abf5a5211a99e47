// Tables as text: cells between semicolons, commas or tabs, one row a line.
#pragma once

#include <string>
#include <string_view>

#include "exchange/sheet.h"

namespace karvel {

// Reads UTF-8 where the bytes are that, but for a few at most, else Windows code page 1254; a cell with a byte that is no letter there is a
// fault. The sign between the cells is the one that stands most often in the first
// line. A cell in quotes may hold that sign, quotes written twice, and line ends.
SheetOutcome ReadCsv(std::string_view bytes);

// As a Turkish spreadsheet opens it: UTF-8 with its mark, semicolons, CR LF.
std::string WriteCsv(const Sheet& sheet);

}  // namespace karvel
