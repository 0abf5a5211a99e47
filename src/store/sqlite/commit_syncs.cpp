#include "store/sqlite/commit_syncs.h"

#include <sqlite3.h>
#include <unistd.h>

#include <mutex>
#include <string>
#include <string_view>

namespace karvel::sqlite {
namespace {

using OpenDirectoryCall = int (*)(const char*, int*);

OpenDirectoryCall sqliteOpenDirectory = nullptr;
thread_local std::string syncedSuperJournal;  // the one whose making synced its folder

std::string_view FolderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

// Called for every directory sync; SQLITE_CANTOPEN makes SQLite go on without it.
int OpenDirectory(const char* file, int* directory) {
  const std::string_view path(file);
  const std::string_view name = path.substr(FolderOf(path).size());
  if (name.find("-mj") != std::string_view::npos) {
    syncedSuperJournal = path;
  } else if (name.ends_with("-journal") && !syncedSuperJournal.empty() && FolderOf(path) == FolderOf(syncedSuperJournal) &&
             access(syncedSuperJournal.c_str(), F_OK) == 0) {
    *directory = -1;
    return SQLITE_CANTOPEN;
  }
  return sqliteOpenDirectory(file, directory);
}

}  // namespace

void CommitSyncs::Install() {
  static std::once_flag once;
  std::call_once(once, [] {
    sqlite3_vfs* files = sqlite3_vfs_find("unix");
    if (files == nullptr || files->iVersion < 3 || files->xSetSystemCall == nullptr) return;
    sqliteOpenDirectory = reinterpret_cast<OpenDirectoryCall>(files->xGetSystemCall(files, "openDirectory"));
    if (sqliteOpenDirectory == nullptr) return;
    files->xSetSystemCall(files, "openDirectory", reinterpret_cast<sqlite3_syscall_ptr>(&OpenDirectory));
  });
}

void CommitSyncs::Begin() {
  syncedSuperJournal.clear();
}

}  // namespace karvel::sqlite
