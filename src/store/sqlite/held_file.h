// A file of SQLite's file layer, whose writes can be held back in memory.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "store/sqlite/change_log.h"

namespace karvel::sqlite {

class HeldFile {
 public:
  explicit HeldFile(const sqlite3_vfs& below);
  // Closes the file, and forgets what is held.
  ~HeldFile();
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  // What fails is told as an SQLite code, here as everywhere below. `name` is SQLite's own, with what it hides behind the text.
  int Open(sqlite3_vfs& below, const char* name, int flags, int* outFlags);
  int Close();
  [[nodiscard]] sqlite3_file* Below() { return below_; }
  [[nodiscard]] std::string_view Path() const { return path_; }
  [[nodiscard]] bool IsStore() const { return (flags_ & SQLITE_OPEN_MAIN_DB) != 0; }
  [[nodiscard]] bool IsJournal() const { return (flags_ & SQLITE_OPEN_MAIN_JOURNAL) != 0; }
  // A journal that SQLite begins, under the lock of its store: nothing that is in the file counts.
  [[nodiscard]] bool IsNewJournal() const { return IsJournal() && (flags_ & SQLITE_OPEN_CREATE) != 0; }
  // Takes out whatever is in the file below.
  int Empty();
  // A journal that somebody would play back: whose first byte is on it.
  [[nodiscard]] bool IsHot();

  int Hold(const void* bytes, int count, sqlite3_int64 at);
  int HoldSize(sqlite3_int64 size);
  [[nodiscard]] bool Holds() const { return !held_.empty(); }
  // The file as it will be when what is held is written.
  int Read(void* to, int count, sqlite3_int64 at);
  int Size(sqlite3_int64* size);
  // Writes what is held, in its order. What fails stays held.
  int Release();
  void Drop();
  // Syncs what was written.
  int Sync(int flags);

  // The write lock on the store was got, or is let go. In between, changes are noted for whoever copies it.
  void LockedForWriting();
  void NoLongerWritten();
  void NoteChange(const void* bytes, int count, sqlite3_int64 at) { notes_.Note(static_cast<const char*>(bytes), count, at); }

 private:
  struct HeldChange {
    sqlite3_int64 at;         // or the new size
    std::vector<char> bytes;  // none for a change of the size
  };

  std::vector<std::max_align_t> room_;
  sqlite3_file* below_;
  std::string path_;
  int flags_ = 0;
  std::vector<HeldChange> held_;
  ChangeNotes notes_;
  bool mayWrite_ = false;
};

}  // namespace karvel::sqlite
