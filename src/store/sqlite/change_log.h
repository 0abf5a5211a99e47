// Which bytes of a store change while it is copied, told by those who change them: beside the store lies a file ("Cari.mdb-changes") as
// long as a copy is being made, and every desk that writes the store notes there what it writes, before it does so. So a copy needs
// nobody's patience: it reads at leisure, and then once more what has changed meanwhile.
//
//   of each write:  where (8 bytes) · how many bytes (4) · the store's change counter, where the write holds it (4), else 0
//
// Programs that know nothing of this note nothing, but SQLite counts every commit in the head of the store. A commit that is missing here
// is seen by its number. Notes are for those that run at the same time alone: they are never synced, and those that a killed copy left say
// nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/status.h"

namespace karvel::sqlite {

// Where the change counter stands in the head of a store, in four bytes, the highest first.
inline constexpr std::int64_t kCounterAt = 24;
std::uint32_t CounterIn(const char* head);

struct Change {
  std::int64_t at = 0;
  std::int32_t count = 0;
  std::uint32_t counter = 0;
};
// Stands for a commit that was noted and taken back.
inline constexpr Change kTakenBack{-1, 0, 0};

// The side of a desk that writes a store, for as long as it has the write lock on it.
class ChangeNotes {
 public:
  ChangeNotes() = default;
  ~ChangeNotes() { Close(); }
  ChangeNotes(const ChangeNotes&) = delete;
  ChangeNotes& operator=(const ChangeNotes&) = delete;

  // Looks whether the store is being copied. Notes that a killed copy left go.
  void Open(const std::string& store);
  void Close();
  // Nothing happens where nobody copies. What can't be noted takes the notes away, for nobody's sale fails for a copy.
  void Note(const char* bytes, int count, std::int64_t at) { Write({at, count, CounterOf(bytes, count, at)}); }
  void NoteTakenBack() { Write(kTakenBack); }

 private:
  static std::uint32_t CounterOf(const char* bytes, int count, std::int64_t at);
  void Write(const Change& change);

  std::string path_;
  int file_ = -1;
};

// The side of the copy.
class ChangeLog {
 public:
  ChangeLog() = default;
  ~ChangeLog() { Close(); }
  ChangeLog(const ChangeLog&) = delete;
  ChangeLog& operator=(const ChangeLog&) = delete;

  // Everybody notes from here on. With the write lock on the store, so that nobody is in the middle of a commit. Busy while another
  // terminal copies it.
  Status Open(const std::string& store);
  // Nobody notes any more.
  void Close();
  // What was noted since the last time; false where a desk could not note.
  [[nodiscard]] bool ReadNew(std::vector<Change>& changes);

 private:
  std::string path_;
  int file_ = -1;
  std::int64_t read_ = 0;
};

}  // namespace karvel::sqlite
