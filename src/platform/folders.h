// Names that outlast a power cut: a disk may keep what is in a file and lose its name until the folder is synced.
#pragma once

#include <string>
#include <string_view>

namespace karvel {

// The folder that a path of this machine lies in.
std::string FolderOf(std::string_view path);

// What came to be or went in the folder is on the disk when this returns. Gives the system's error number, 0 for well. Well also where the
// disk or the rights know no sync of a folder.
int SyncFolder(const std::string& folder);

// What is in the file is on the disk when this returns. 0 or the system's error number.
int SyncFile(const std::string& path);

// Frees what a large file holds, a piece at a time and each on the disk before the next: a disk that is told of every block it gets back
// would keep whoever syncs meanwhile waiting for all of them. The file is left, small; what fails leaves it as it is by then.
void EmptyByPieces(const std::string& path);

// Gives a file another name in its folder, never over one that is there: of two programs one succeeds, the other hears EEXIST. Also on
// disks without links. 0 or the system's error number.
int MoveToFreeName(const std::string& from, const std::string& to);

// Two files or folders of one disk take each other's name in one step: at no moment is either name free. EINVAL or ENOSYS, and nothing is
// changed, where the disk can't do that. 0 or the system's error number.
int ExchangeNames(const std::string& one, const std::string& other);

}  // namespace karvel
