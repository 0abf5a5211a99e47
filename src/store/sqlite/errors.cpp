#include "store/sqlite/errors.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include "platform/system_error.h"

namespace karvel::sqlite {
namespace {

// The disk's own word on a failed read or write tells no room from a broken disk. The engine looks for journals that are mostly not there
// and tries files that are in use, so an error number that says so may be left over from that: it tells nothing of the failure.
ErrorKind KindOfDiskError(int error, ErrorKind otherwise) {
  const ErrorKind kind = KindOfSystemError(error, otherwise);
  return kind == ErrorKind::Missing || kind == ErrorKind::Busy ? otherwise : kind;
}

ErrorKind KindOf(int code, int systemError) {
  switch (code & 0xFF) {
    case SQLITE_FULL:
      return ErrorKind::DiskFull;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return ErrorKind::NoRights;
    case SQLITE_CANTOPEN:
      if (code == SQLITE_CANTOPEN_SYMLINK) return ErrorKind::Damaged;
      return KindOfDiskError(systemError, ErrorKind::NoRights);
    case SQLITE_CORRUPT:
      // The engine also says so where the disk failed to read a page: the page may be as good as ever.
      return KindOfDiskError(systemError, ErrorKind::Damaged) == ErrorKind::DiskFailed ? ErrorKind::DiskFailed : ErrorKind::Damaged;
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
      return ErrorKind::Damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return ErrorKind::Busy;
    case SQLITE_IOERR:
      return KindOfDiskError(systemError, ErrorKind::DiskFailed);
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
    case SQLITE_RANGE:
      return ErrorKind::BadText;
    default:
      return ErrorKind::Other;
  }
}

// The disk's word, as the connection has it; on some ways out SQLite keeps it only with the file that failed.
int SystemErrorOf(sqlite3* connection) {
  int error = sqlite3_system_errno(connection);
  for (int i = 0; error == 0; ++i) {
    const char* schema = sqlite3_db_name(connection, i);
    if (schema == nullptr) break;
    sqlite3_file_control(connection, schema, SQLITE_FCNTL_LAST_ERRNO, &error);
  }
  return error;
}

}  // namespace

Status StatusOf(const SQLite::Exception& error, SQLite::Database* connection, std::string_view what) {
  const int systemError = connection != nullptr ? SystemErrorOf(connection->getHandle()) : 0;
  const int code = error.getExtendedErrorCode();
  return {KindOf(code, systemError),
          fmt::format("{}: {} (code {}, system {})", what, error.what(), error.getExtendedErrorCode(), systemError)};
}

}  // namespace karvel::sqlite
