// Files that are written beside their place until they are whole: hidden, and named by the process that writes them, so that whatever a
// killed program has left of one is known as such.
#pragma once

#include <string>
#include <string_view>

namespace karvel {

// A path for one more of them in a folder of this machine. Whoever writes it may add an ending of his own.
std::string UnfinishedIn(const std::string& folder);
// True for the name of one, in work or left behind.
bool IsUnfinished(std::string_view name);
// Deletes those in a folder of this machine whose writers no longer live.
void SweepUnfinished(const std::string& folder);

}  // namespace karvel
