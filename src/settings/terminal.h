// Which terminal of the shop this desk is: the last letter of its title tells. The number is part of every line id, so two terminals on the
// same files never make the same one.
#pragma once

#include <string>
#include <string_view>

namespace karvel {

// Two digits: "01" for "Velmora Karvel1", also for a title that ends in "0". A letter at the end stays that letter.
std::string TerminalNo(std::string_view title);
// The same as a plain number, "1" for "01"; a letter stays.
std::string TerminalNumber(std::string_view terminalNo);

}  // namespace karvel
