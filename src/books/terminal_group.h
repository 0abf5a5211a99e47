// The group "WinKarvel1" among the groups of stock cards: the mark under which the terminals' own rows are grouped.
#pragma once

#include "books/shop.h"

namespace karvel {

// Adds it when there is none. Terminals that start together add it once.
Status KeepTerminalGroup(const Shop& shop);

}  // namespace karvel
