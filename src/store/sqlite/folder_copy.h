// The stores' files copied page by page, beside desks that write them.
//
// The first round copies whole files; every further round copies what was written during the one before it (see change_log.h), which gets
// less and less. When little is left, it is copied under the write lock of all files, and that is the moment of the copy. The lock is taken
// between two rounds too, only to look: then nobody is in the middle of a commit, so all that is noted stands.
//
// A page is read under a read lock for a thousandth of a second, so it holds nothing that a commit is just writing or will take back.
// Where a commit wasn't noted, its file is copied anew.
#pragma once

#include <memory>
#include <string>

#include "platform/patience.h"
#include "store/engine.h"
#include "store/sqlite/connection.h"
#include "store/stores_copy.h"

namespace karvel::sqlite {

// Begins a copy of the files that the connection has open, which is that of the engine, into a folder that exists and is empty. Busy while
// another terminal makes one.
Status BeginFolderCopy(Engine& engine, Connection& connection, Patience& patience, const std::string& folder,
                       std::unique_ptr<StoresCopy>& copy);

}  // namespace karvel::sqlite
