// Tables as .xlsx files: read through libzip and Expat, written through libxlsxwriter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/sheet.h"
#include "platform/status.h"

namespace karvel {

// Whether the bytes begin as such a file does.
bool IsXlsx(std::string_view bytes);

// The first sheet of the workbook. Numbers come as the desk shows them, all their digits included, however the cell shows them. Dates, and
// formulas that were never worked out, are faults.
SheetOutcome ReadXlsx(std::string_view bytes);

// A new file at a path of this machine, which must not exist. `numbers` tells for each column whether its cells are numbers where they read
// as such; all others are texts, so that no spreadsheet takes the digits of a code for a number.
Status WriteXlsx(const Sheet& sheet, const std::vector<bool>& numbers, const std::string& realPath);

}  // namespace karvel
