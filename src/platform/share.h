// Network work as it stands in texts: the address that the clerk types, and the folder "\\ADDRESS\MuhasebeData\FIRM" in which DataDir then
// reads. No such folder is on a disk: its stores are those of the main machine's server, and what else belongs there lies in the folder of
// this machine that stands for the share (platform/files.h).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/connection.h"

namespace karvel {

// Whether a data folder is the main machine's.
bool IsShare(std::string_view dataFolder);
// The data folder of a firm at an address.
std::string ShareFolder(const std::string& address, const std::string& firm);
// An address as it is kept: without "\" and blanks at its ends, commas as points. "" for none.
std::string TidyAddress(std::string_view typed);
// Whether a firm's number can stand in the folder's name: letters and digits alone, at least one and at most 40.
bool IsFirmNumber(std::string_view text);
// The machines of an address, or of a share's data folder: "10.0.0.5", "kasa:5433", "[::1]:5432", and several with ";" between them, the
// first of which that takes writes is the main one. None of any other text: one machine that can't be understood makes it all unusable.
std::vector<ServerPlace> MainMachines(std::string_view address);

}  // namespace karvel
