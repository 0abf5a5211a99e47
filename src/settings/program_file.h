// A small text file beside the program, in Windows code page 1254 with CR LF, which the shop edits by hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace karvel {

// Where the file stands, by its name ignoring case: a shop that copies its old files over may bring "FIRMAM.TXT".
// The name as given when there is none yet.
std::string ProgramFilePath(const Files& files, std::string_view name);
// Its lines, without their ends. A file saved as UTF-8 with its mark in front is read as that.
Status ReadProgramLines(const Files& files, const std::string& path, std::vector<std::string>& lines);
Status WriteProgramLines(Files& files, const std::string& path, const std::vector<std::string>& lines);

}  // namespace karvel
