// The fonts of the documents on this machine. They are asked for by the names that the shop's old printers knew; one that the machine lacks
// is replaced by a near one of the same width class, with all Turkish letters.
#pragma once

#include <QFont>

#include "platform/printer.h"

namespace karvel {

QFont FontOnPaper(const PrintFont& font);

}  // namespace karvel
