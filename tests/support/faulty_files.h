// An SQLite file layer over the usual one that counts writes and syncs, and lets them fail on request.
#pragma once

#include <sqlite3.h>

#include <atomic>
#include <cstring>
#include <string>
#include <vector>

namespace karvel::testing {

struct FileFaults {
  // Files are written and synced by several threads.
  std::atomic<int> writes = 0;
  std::atomic<int> syncs = 0;
  int failFrom = 0;            // the write or sync with this number, and all behind it, fail; 0 for none
  bool failOnce = false;       // that one alone
  int failWith = SQLITE_FULL;  // or an SQLITE_IOERR_…
  std::atomic<int> steps = 0;  // writes and syncs together
  int folderSyncs = 0;         // of names that are gone
  int failFolderSync = 0;      // the one with this number fails: the name is gone all the same; 0 for none
  int failReadsFrom = 0;       // the read or opening with this number from now, and all behind it, fail; 0 for none
  int failReadsWith = SQLITE_IOERR_READ;
  int systemError = 0;                 // the error number that the system told of it; 0 for the real one
  bool silentAfterFolderSync = false;  // from the failing folder sync on nothing can be read or opened

  // Whether the step at hand fails.
  bool Fails() {
    const int step = ++steps;
    return failFrom > 0 && (failOnce ? step == failFrom : step >= failFrom);
  }
  // Whether the read or opening at hand fails.
  bool FailsToRead() {
    const bool fails = failReadsFrom == 1;
    if (failReadsFrom > 1) --failReadsFrom;
    return fails;
  }
  void Reset() {
    writes = syncs = steps = folderSyncs = 0;
    failFrom = failFolderSync = failReadsFrom = systemError = 0;
    failOnce = false;
    failWith = SQLITE_FULL;
    failReadsWith = SQLITE_IOERR_READ;
    silentAfterFolderSync = false;
  }
};

inline FileFaults& Faults() {
  static FileFaults faults;
  return faults;
}

namespace faulty {

// The usual layer's file lies behind ours in the room that SQLite gives.
struct File {
  sqlite3_file base;
  sqlite3_file* real;
};

inline sqlite3_file* Real(sqlite3_file* file) {
  return reinterpret_cast<File*>(file)->real;
}
inline sqlite3_vfs* Usual() {
  return sqlite3_vfs_find("unix");
}

inline int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  ++Faults().writes;
  if (Faults().Fails()) return Faults().failWith;
  return Real(file)->pMethods->xWrite(Real(file), bytes, count, at);
}
inline int Sync(sqlite3_file* file, int flags) {
  ++Faults().syncs;
  if (Faults().Fails()) return Faults().failWith == SQLITE_FULL ? SQLITE_IOERR_FSYNC : Faults().failWith;
  return Real(file)->pMethods->xSync(Real(file), flags);
}

inline int Read(sqlite3_file* file, void* to, int count, sqlite3_int64 at) {
  if (Faults().FailsToRead()) return Faults().failReadsWith;
  return Real(file)->pMethods->xRead(Real(file), to, count, at);
}

inline int FileControl(sqlite3_file* file, int op, void* argument) {
  if (op == SQLITE_FCNTL_LAST_ERRNO && Faults().systemError != 0) {
    *static_cast<int*>(argument) = Faults().systemError;
    return SQLITE_OK;
  }
  return Real(file)->pMethods->xFileControl(Real(file), op, argument);
}

inline const sqlite3_io_methods& Methods() {
  static const sqlite3_io_methods methods = [] {
    sqlite3_io_methods m{};
    m.iVersion = 1;
    m.xClose = [](sqlite3_file* f) { return Real(f)->pMethods->xClose(Real(f)); };
    m.xRead = Read;
    m.xWrite = Write;
    m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) { return Real(f)->pMethods->xTruncate(Real(f), size); };
    m.xSync = Sync;
    m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) { return Real(f)->pMethods->xFileSize(Real(f), size); };
    m.xLock = [](sqlite3_file* f, int how) { return Real(f)->pMethods->xLock(Real(f), how); };
    m.xUnlock = [](sqlite3_file* f, int how) { return Real(f)->pMethods->xUnlock(Real(f), how); };
    m.xCheckReservedLock = [](sqlite3_file* f, int* out) { return Real(f)->pMethods->xCheckReservedLock(Real(f), out); };
    m.xFileControl = FileControl;
    m.xSectorSize = [](sqlite3_file* f) { return Real(f)->pMethods->xSectorSize(Real(f)); };
    m.xDeviceCharacteristics = [](sqlite3_file* f) { return Real(f)->pMethods->xDeviceCharacteristics(Real(f)); };
    return m;
  }();
  return methods;
}

inline int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto* ours = reinterpret_cast<File*>(file);
  ours->base.pMethods = nullptr;
  if (Faults().FailsToRead()) return SQLITE_IOERR;
  ours->real = reinterpret_cast<sqlite3_file*>(ours + 1);
  std::memset(static_cast<void*>(ours->real), 0, static_cast<std::size_t>(Usual()->szOsFile));
  const int result = Usual()->xOpen(Usual(), name, ours->real, flags, outFlags);
  ours->base.pMethods = ours->real->pMethods != nullptr ? &Methods() : nullptr;
  return result;
}

inline int Delete(sqlite3_vfs*, const char* name, int syncsFolder) {
  const int result = Usual()->xDelete(Usual(), name, syncsFolder);
  if (result != SQLITE_OK || syncsFolder == 0 || ++Faults().folderSyncs != Faults().failFolderSync) return result;
  if (Faults().silentAfterFolderSync) Faults().failReadsFrom = 1;
  return SQLITE_IOERR_DIR_FSYNC;
}

}  // namespace faulty

// Registers the layer, once; gives its name.
inline std::string FaultyFiles() {
  static sqlite3_vfs layer = [] {
    sqlite3_vfs vfs = *faulty::Usual();
    vfs.szOsFile += static_cast<int>(sizeof(faulty::File));
    vfs.zName = "karvel-faulty";
    vfs.pNext = nullptr;
    vfs.xOpen = faulty::Open;
    vfs.xDelete = faulty::Delete;
    return vfs;
  }();
  static const int registered = sqlite3_vfs_register(&layer, 0);
  (void)registered;
  return layer.zName;
}

}  // namespace karvel::testing
