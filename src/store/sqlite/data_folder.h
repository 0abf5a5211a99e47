// Opens the eight files of a data folder as one connection: found by name whatever the case, recovered in place where a writer died,
// set to a rollback journal and full syncs, and checked to be what their names say.
#pragma once

#include <memory>
#include <string>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/sqlite/connection.h"
#include "store/sqlite/gate.h"
#include "store/sqlite/sqlite_engine.h"

namespace karvel::sqlite {

// The file's path in the folder, ignoring case; "" when it isn't there.
std::string FindFile(const std::string& folder, std::string_view name);

// The connection's name for a file of the data folder. Karvel.mdb, the busiest, is the main database.
std::string SchemaOf(const DatabaseFile& file);
// Whether the file belongs to the data folder, and so to the commits over it.
bool InDataFolder(const DatabaseFile& file);

// Opens all eight, and the gate; waits for other programs as long as the patience lasts, but for no other terminal. On failure `connection`
// stays empty and the message begins with the file's name.
Status OpenDataFolder(const std::string& folder, const SqliteOptions& options, Patience& patience, Gate& gate,
                      std::unique_ptr<Connection>& connection);
// Opens all eight once more, beside a connection that is open already, and recovers them where a commit was left half done.
Status OpenAnew(const std::string& folder, const SqliteOptions& options, Patience& patience, std::unique_ptr<Connection>& connection);
// Whether a file that could only be read when it was opened may be written by now: on its connection it stays read-only.
bool MayBeWrittenByNow(Connection& connection);
// Opens the scratch file under the schema name "main".
Status OpenScratch(const DatabaseFile& file, const SqliteOptions& options, Patience& patience, std::unique_ptr<Connection>& connection);

}  // namespace karvel::sqlite
