// What the system says of a failure, by its error number (errno), as the kinds that the desk knows. The one table of that.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

// DiskFull for no room, a used-up quota or a file that can't grow; NoRights for what is forbidden or read-only; Missing for a file or
// folder that isn't there; Damaged for a link where a file was to be; DiskFailed for a disk or share that doesn't answer as it should;
// Busy for one that is in use; Other for too many open files. `otherwise` for all the rest, and for 0.
ErrorKind KindOfSystemError(int error, ErrorKind otherwise = ErrorKind::Other);

// The outcome of a system call on a path: well for 0, else its kind with the path and the system's own words.
Status StatusOfSystemError(int error, const std::string& path);

}  // namespace karvel
