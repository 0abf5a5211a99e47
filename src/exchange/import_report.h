// What an import of cards tells whoever runs it, in plain Turkish.
#pragma once

#include <string>

#include "exchange/card_import.h"

namespace karvel {

// "Satır 12, sütun C (Barkod): …": the fault with the heading over it, where there is one.
std::string FaultLine(const SheetFault& fault, const CardSheet& sheet);

// A line for each fault, then what came of it, or would.
std::string ImportReport(const CardImport& import, const CardSheet& sheet, ImportMode mode);

}  // namespace karvel
