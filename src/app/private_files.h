// Files and folders that their user alone can read, whatever the umask: the books, the settings with their passwords, the log. Nothing is
// opened through a symbolic link: whoever lays one could have the desk read or write a file of his choice. The folders above may be links.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

// Makes a folder with its parents, each synced into its own: after a power cut none of them is missing that was there before a file was
// written in it. A folder that exists already keeps its rights and is no failure.
Status MakePrivateFolder(const std::string& path);

// open(2) with these flags; -1 and errno (ELOOP for a link).
int OpenPrivate(const std::string& path, int flags);

bool IsLink(const std::string& path);

}  // namespace karvel
