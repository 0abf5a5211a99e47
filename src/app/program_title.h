#pragma once

#include <string>
#include <string_view>

namespace karvel {

// The title of a terminal: the name by which its program was started, where that begins with "Velmora Karvel", else that of terminal 1.
// `startedAs` is the first word of the command line, a path or a name.
std::string ProgramTitle(std::string_view startedAs);

}  // namespace karvel
