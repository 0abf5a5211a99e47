// The empty database files that stand beside the program, laid into a data folder that lacks them.
#pragma once

#include <string>

#include "platform/files.h"

namespace karvel {

// Which of the shop's main files (Cari, Stok, Karvel) are missing beside others that hold rows, by name: "Cari.mdb, Stok.mdb". An empty
// file in their place would look as if the shop had no customers or items. "" for a new shop, and where nothing is missing.
std::string MissingBesideRows(const Files& files, const std::string& dataFolder);

// Folders beside a data folder that isn't there or holds none of the shop's files, by name: "KarvelData.eski-20260301-091507,
// KarvelData.yeni". Restoring a backup leaves them, the latter only where it was cut off. The shop's data is in one of them, so an empty
// shop must not begin in silence. "" where there are none, or nothing is missing.
std::string LeftBesideMissing(const Files& files, const std::string& dataFolder);

// Copies each of the data folder's files that is missing. One that is there stays as it is, even one that another terminal lays there at
// this moment. `dataFolder` ends with a backslash. A failure names the file; the files before it are laid.
Status CopyMissingTemplates(Files& files, const std::string& dataFolder);

}  // namespace karvel
