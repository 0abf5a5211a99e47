// A commit over several files in four waits for the disk, at the same safety: a layer between SQLite and its usual file layer.
//
// By itself SQLite waits for each sync in turn: 15 of them for four files. But most of them have nothing to wait for in each other. So from
// the making of the super-journal on, this layer holds back what must not be on the disk too early, and when the super-journal is to be
// deleted, which is the commit, it does it all in four rounds, the syncs of each side by side:
//
//   1. the journals with the name of the super-journal in them, the super-journal, and the folder that names them all;
//   2. the journals' headers, which make them count;
//   3. the stores;
//   4. the super-journal goes, and the folder is synced behind it.
//
// Files, formats and recovery are SQLite's own: any SQLite program puts right what a cut leaves.
//
// Why the order is enough. A header says nothing until round 2, so nobody plays back a journal before all of them, the super-journal and
// their names are safe; within round 1 nothing counts yet, and so its order is free. A store changes in round 3 alone, when each journal is
// whole and bound to the super-journal; so whatever part of rounds 2 and 3 is on the disk, all journals are played back together. Once the
// super-journal is gone, none is; by then the stores are safe. Journals are deleted behind round 4 alone. A journal that counts already
// when the super-journal is made (an action too large for memory has changed its store before) must get the name of a super-journal that is
// safe: such a commit goes through as SQLite does it, and so does one without a super-journal.
//
// A round that fails makes the commit fail, and SQLite takes it back from the journals. What is held then never comes to the disk. Where
// the folder's last sync fails, or a desk is killed before it, the commit stands and yet may come undone by a cut: so that it does so in
// all files, whoever finds its journals deletes none before that sync has been made up for. For a journal that is played back it would not
// be needed: played back once more it changes nothing, and a later commit syncs the folder before it changes a store.
//
// A commit that is cut between rounds 1 and 2 leaves journals without a header, which nobody plays back and SQLite never deletes. Whatever
// is written over one must not end with its name of a super-journal, so a journal is emptied before it is begun; and a start sweeps those
// that are left, for the sake of other programs.
//
// An action that wrote one file only has a super-journal too, because the engine locks all files for writing. That makes it durable: SQLite
// syncs the folder behind a super-journal, but not behind a single journal.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/sqlite/held_file.h"
#include "store/sqlite/side_by_side.h"

namespace karvel::sqlite {

// For the connections of one thread. They must be closed before this ends.
class CommitRounds {
 public:
  // Stands on a file layer, by its name; empty for the usual one.
  explicit CommitRounds(const std::string& below);
  ~CommitRounds();
  CommitRounds(const CommitRounds&) = delete;
  CommitRounds& operator=(const CommitRounds&) = delete;

  // The file layer by name, for those who open a connection.
  [[nodiscard]] const std::string& Name() const { return name_; }

 private:
  // What SQLite holds of an open file.
  struct OpenFile {
    sqlite3_file base;
    CommitRounds* rounds;
    HeldFile* file;
  };
  struct Layer : sqlite3_vfs {
    CommitRounds* rounds;
  };
  // A file of the commit at hand, with the syncs that SQLite asked for; 0 for none.
  struct Part {
    HeldFile* file;
    int contentSync = 0;
    int heldSync = 0;
  };

  static const sqlite3_io_methods& Methods();
  static HeldFile& FileOf(sqlite3_file* file) { return *reinterpret_cast<OpenFile*>(file)->file; }
  static sqlite3_file* Below(sqlite3_file* file) { return FileOf(file).Below(); }
  static CommitRounds& RoundsOf(sqlite3_file* file) { return *reinterpret_cast<OpenFile*>(file)->rounds; }

  int Open(const char* name, sqlite3_file* file, int flags, int* outFlags);
  int Close(sqlite3_file* file);
  int Delete(const char* path, int syncFolder);
  int Read(HeldFile& file, void* to, int count, sqlite3_int64 at);
  int Write(HeldFile& file, const void* bytes, int count, sqlite3_int64 at);
  int Resize(HeldFile& file, sqlite3_int64 size);
  int Sync(HeldFile& file, int flags);

  [[nodiscard]] bool MayGather();
  void Gather(HeldFile& superJournal);
  [[nodiscard]] bool Gathers() const { return !superJournal_.empty(); }
  // The part of a file in the commit that is gathered; null while none is, or where the file has none.
  Part* PartOf(const HeldFile& file);
  [[nodiscard]] bool IsToHold(const HeldFile& file);
  // SQLite deletes a closed super-journal at once. Whatever else it does then begins to take the commit back.
  void HeedTakingBack();
  void TakeBack();
  int DoRounds();
  int Round(const std::vector<std::function<int()>>& waits);

  sqlite3_vfs* below_;
  Layer layer_{};
  std::string name_;
  std::vector<std::unique_ptr<HeldFile>> files_;
  SideBySide sideBySide_;
  // The commit that is gathered.
  std::string superJournal_;               // its path
  std::unique_ptr<HeldFile> closedSuper_;  // closed by SQLite, not by us
  std::vector<Part> parts_;
  // A commit that was taken back too early to know why; its super-journal must not be deleted as if it had been done.
  std::string spoiled_;
  // The journals that are left belong to a commit whose super-journal is gone for good.
  bool settled_ = false;
};

}  // namespace karvel::sqlite
