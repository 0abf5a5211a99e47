// Store files made whole from rows that come from elsewhere, as SQLite databases.
#pragma once

#include <memory>
#include <string>

#include "store/store_file_writer.h"

namespace karvel {

// A StoreFileMaker. An unfinished file from before is replaced.
Status MakeSqliteStoreFile(const DatabaseFile& file, const std::string& realPath, std::unique_ptr<StoreFileWriter>& writer);

}  // namespace karvel
