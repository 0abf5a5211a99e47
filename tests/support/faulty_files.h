// An SQLite file layer over the usual one that counts writes and syncs, and lets them fail on request.
#pragma once

#include <sqlite3.h>

#include <cstring>
#include <string>
#include <vector>

namespace karvel::testing {

struct FileFaults {
  int writes = 0;
  int syncs = 0;
  int failFrom = 0;            // the write or sync with this number, and all behind it, fail; 0 for none
  int failWith = SQLITE_FULL;  // or an SQLITE_IOERR_…
  int steps = 0;               // writes and syncs together

  // Whether the step at hand fails.
  bool Fails() { return ++steps >= failFrom && failFrom > 0; }
  void Reset() { *this = FileFaults(); }
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

inline const sqlite3_io_methods& Methods() {
  static const sqlite3_io_methods methods = [] {
    sqlite3_io_methods m{};
    m.iVersion = 1;
    m.xClose = [](sqlite3_file* f) { return Real(f)->pMethods->xClose(Real(f)); };
    m.xRead = [](sqlite3_file* f, void* to, int n, sqlite3_int64 at) { return Real(f)->pMethods->xRead(Real(f), to, n, at); };
    m.xWrite = Write;
    m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) { return Real(f)->pMethods->xTruncate(Real(f), size); };
    m.xSync = Sync;
    m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) { return Real(f)->pMethods->xFileSize(Real(f), size); };
    m.xLock = [](sqlite3_file* f, int how) { return Real(f)->pMethods->xLock(Real(f), how); };
    m.xUnlock = [](sqlite3_file* f, int how) { return Real(f)->pMethods->xUnlock(Real(f), how); };
    m.xCheckReservedLock = [](sqlite3_file* f, int* out) { return Real(f)->pMethods->xCheckReservedLock(Real(f), out); };
    m.xFileControl = [](sqlite3_file* f, int op, void* arg) { return Real(f)->pMethods->xFileControl(Real(f), op, arg); };
    m.xSectorSize = [](sqlite3_file* f) { return Real(f)->pMethods->xSectorSize(Real(f)); };
    m.xDeviceCharacteristics = [](sqlite3_file* f) { return Real(f)->pMethods->xDeviceCharacteristics(Real(f)); };
    return m;
  }();
  return methods;
}

inline int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto* ours = reinterpret_cast<File*>(file);
  ours->real = reinterpret_cast<sqlite3_file*>(ours + 1);
  std::memset(static_cast<void*>(ours->real), 0, static_cast<std::size_t>(Usual()->szOsFile));
  const int result = Usual()->xOpen(Usual(), name, ours->real, flags, outFlags);
  ours->base.pMethods = ours->real->pMethods != nullptr ? &Methods() : nullptr;
  return result;
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
    return vfs;
  }();
  static const int registered = sqlite3_vfs_register(&layer, 0);
  (void)registered;
  return layer.zName;
}

}  // namespace karvel::testing
