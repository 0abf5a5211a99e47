// The empty database files that stand beside the program, laid into a data folder that lacks them.
#pragma once

#include <string>

#include "platform/files.h"

namespace karvel {

// Copies each of the data folder's files that is missing. One that is there stays as it is, even one that another terminal lays there at
// this moment. `dataFolder` ends with a backslash. A failure names the file; the files before it are laid.
Status CopyMissingTemplates(Files& files, const std::string& dataFolder);

}  // namespace karvel
