// A table from a file, whatever its form: text between separators, or a spreadsheet's own.
#pragma once

#include <string_view>

#include "exchange/sheet.h"

namespace karvel {

// By what the bytes are. A file named .xlsx that holds something else is refused: what a spreadsheet didn't save as one was not meant so.
SheetOutcome ReadSheetFile(std::string_view name, std::string_view bytes);

}  // namespace karvel
