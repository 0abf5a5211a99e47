// Whom a text means that was typed or read where a customer's name belongs.
#pragma once

#include <string>

#include "store/cursor.h"

namespace karvel {

// Stands on the first card of the list whose name begins so; else on the card with this card number; else on the first whose name begins so
// but for the kind of an i, which a keyboard without the Turkish letters types one for the other; there a quote is a letter, too.
// NoRecord, and it stays, where there is none; any other kind where the files can't be read, for then nobody is known to be missing.
Status FindCustomerByText(Cursor& list, const std::string& text);

}  // namespace karvel
