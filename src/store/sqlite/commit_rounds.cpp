#include "store/sqlite/commit_rounds.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <fstream>
#include <functional>
#include <mutex>
#include <set>
#include <utility>

#include "platform/folders.h"

namespace karvel::sqlite {
namespace {

using OpenDirectoryCall = int (*)(const char*, int*);

OpenDirectoryCall sqliteOpenDirectory = nullptr;
// True while this thread syncs in a round, where the folder has a sync of its own.
thread_local bool folderApart = false;

// Called for every sync of a folder; with SQLITE_CANTOPEN the usual layer goes on without it.
int OpenDirectory(const char* file, int* directory) {
  if (!folderApart) return sqliteOpenDirectory(file, directory);
  *directory = -1;
  return SQLITE_CANTOPEN;
}

void KeepFoldersApart() {
  static std::once_flag once;
  std::call_once(once, [] {
    sqlite3_vfs* files = sqlite3_vfs_find("unix");
    if (files == nullptr || files->iVersion < 3 || files->xSetSystemCall == nullptr) return;
    sqliteOpenDirectory = reinterpret_cast<OpenDirectoryCall>(files->xGetSystemCall(files, "openDirectory"));
    if (sqliteOpenDirectory == nullptr) return;
    files->xSetSystemCall(files, "openDirectory", reinterpret_cast<sqlite3_syscall_ptr>(&OpenDirectory));
  });
}

// A journal that counts, and ends with the name of a super-journal: this mark stands behind it.
bool IsBoundJournal(std::string_view path) {
  constexpr std::string_view kMark = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
  if (!path.ends_with("-journal")) return false;
  std::ifstream file(std::string(path), std::ios::binary);
  if (file.get() <= 0) return false;
  std::array<char, kMark.size()> end{};
  file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
  return file.read(end.data(), end.size()) && std::string_view(end.data(), end.size()) == kMark;
}

int SyncedFolder(const std::string& folder) {
  errno = SyncFolder(folder);
  return errno == 0 ? SQLITE_OK : SQLITE_IOERR_DIR_FSYNC;
}

}  // namespace

CommitRounds::CommitRounds(const std::string& below) : below_(sqlite3_vfs_find(below.empty() ? nullptr : below.c_str())), name_(below) {
  if (below_ == nullptr) return;
  KeepFoldersApart();
  static std::atomic<int> count = 0;
  name_ = fmt::format("karvel-rounds-{}", ++count);
  static_cast<sqlite3_vfs&>(layer_) = *below_;
  layer_.szOsFile = sizeof(OpenFile);
  layer_.zName = name_.c_str();
  layer_.pNext = nullptr;
  layer_.rounds = this;
  layer_.xOpen = [](sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    return static_cast<Layer*>(vfs)->rounds->Open(name, file, flags, outFlags);
  };
  layer_.xDelete = [](sqlite3_vfs* vfs, const char* path, int syncFolder) {
    return static_cast<Layer*>(vfs)->rounds->Delete(path, syncFolder);
  };
  sqlite3_vfs_register(&layer_, 0);
}

CommitRounds::~CommitRounds() {
  if (layer_.rounds != nullptr) sqlite3_vfs_unregister(&layer_);
}

const sqlite3_io_methods& CommitRounds::Methods() {
  static const sqlite3_io_methods methods = [] {
    sqlite3_io_methods m{};
    m.iVersion = 3;
    m.xClose = [](sqlite3_file* f) { return RoundsOf(f).Close(f); };
    m.xRead = [](sqlite3_file* f, void* to, int count, sqlite3_int64 at) { return RoundsOf(f).Read(FileOf(f), to, count, at); };
    m.xWrite = [](sqlite3_file* f, const void* bytes, int count, sqlite3_int64 at) {
      return RoundsOf(f).Write(FileOf(f), bytes, count, at);
    };
    m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) { return RoundsOf(f).Resize(FileOf(f), size); };
    m.xSync = [](sqlite3_file* f, int flags) { return RoundsOf(f).Sync(FileOf(f), flags); };
    m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) { return FileOf(f).Size(size); };
    m.xLock = [](sqlite3_file* f, int how) {
      const int locked = Below(f)->pMethods->xLock(Below(f), how);
      if (locked == SQLITE_OK && how >= SQLITE_LOCK_RESERVED) FileOf(f).LockedForWriting();
      return locked;
    };
    m.xUnlock = [](sqlite3_file* f, int how) {
      RoundsOf(f).HeedTakingBack();
      FileOf(f).NoLongerWritten();
      return Below(f)->pMethods->xUnlock(Below(f), how);
    };
    m.xCheckReservedLock = [](sqlite3_file* f, int* out) { return Below(f)->pMethods->xCheckReservedLock(Below(f), out); };
    m.xFileControl = [](sqlite3_file* f, int what, void* with) { return Below(f)->pMethods->xFileControl(Below(f), what, with); };
    m.xSectorSize = [](sqlite3_file* f) { return Below(f)->pMethods->xSectorSize(Below(f)); };
    m.xDeviceCharacteristics = [](sqlite3_file* f) { return Below(f)->pMethods->xDeviceCharacteristics(Below(f)); };
    // A file that another program left with a write-ahead log is opened with these once more.
    m.xShmMap = [](sqlite3_file* f, int page, int size, int extend, void volatile** to) {
      return Below(f)->pMethods->iVersion < 2 ? SQLITE_IOERR_SHMMAP : Below(f)->pMethods->xShmMap(Below(f), page, size, extend, to);
    };
    m.xShmLock = [](sqlite3_file* f, int at, int count, int flags) { return Below(f)->pMethods->xShmLock(Below(f), at, count, flags); };
    m.xShmBarrier = [](sqlite3_file* f) { Below(f)->pMethods->xShmBarrier(Below(f)); };
    m.xShmUnmap = [](sqlite3_file* f, int andDelete) {
      return Below(f)->pMethods->iVersion < 2 ? SQLITE_OK : Below(f)->pMethods->xShmUnmap(Below(f), andDelete);
    };
    // Nothing is mapped: what is held back wouldn't be seen.
    m.xFetch = [](sqlite3_file*, sqlite3_int64, int, void** to) {
      *to = nullptr;
      return SQLITE_OK;
    };
    m.xUnfetch = [](sqlite3_file*, sqlite3_int64, void*) { return SQLITE_OK; };
    return m;
  }();
  return methods;
}

int CommitRounds::Open(const char* name, sqlite3_file* file, int flags, int* outFlags) {
  HeedTakingBack();
  auto* ours = reinterpret_cast<OpenFile*>(file);
  ours->base.pMethods = nullptr;
  auto held = std::make_unique<HeldFile>(*below_);
  const int opened = held->Open(*below_, name, flags, outFlags);
  if (held->Below()->pMethods == nullptr) return opened;
  ours->base.pMethods = &Methods();
  ours->rounds = this;
  ours->file = held.get();
  if (held->IsJournal()) settled_ = false;
  files_.push_back(std::move(held));
  // A new journal over one that a cut commit left: the super-journal's name at the end of that would be read as its own.
  if (opened == SQLITE_OK && ours->file->IsNewJournal()) {
    if (const int emptied = ours->file->Empty(); emptied != SQLITE_OK) return emptied;
  }
  constexpr int kMade = SQLITE_OPEN_SUPER_JOURNAL | SQLITE_OPEN_CREATE;
  if (opened == SQLITE_OK && (flags & kMade) == kMade && MayGather()) Gather(*ours->file);
  return opened;
}

int CommitRounds::Close(sqlite3_file* file) {
  HeedTakingBack();
  const auto found = std::ranges::find_if(files_, [&](const auto& one) { return one.get() == &FileOf(file); });
  std::unique_ptr<HeldFile> held = std::move(*found);
  files_.erase(found);
  if (Gathers() && held->Path() == superJournal_) {
    closedSuper_ = std::move(held);
    return SQLITE_OK;
  }
  if (Gathers() && PartOf(*held) != nullptr) TakeBack();
  return held->Close();
}

int CommitRounds::Delete(const char* path, int syncFolder) {
  if (Gathers() && closedSuper_ != nullptr && path == superJournal_) {
    const int done = DoRounds();
    const int error = errno;
    if (done != SQLITE_OK) {
      TakeBack();
      errno = error;  // the clerk is told what failed
      return done;
    }
    closedSuper_.reset();
    superJournal_.clear();
    parts_.clear();
    const int gone = below_->xDelete(below_, path, syncFolder);
    settled_ = gone == SQLITE_OK;
    return gone;
  }
  HeedTakingBack();
  if (syncFolder != 0 && path == spoiled_) return SQLITE_IOERR_DELETE;
  // While it isn't sure that the super-journal stays away, all journals must be there with it or none.
  if (!settled_ && IsBoundJournal(path) && SyncedFolder(FolderOf(path)) != SQLITE_OK) return SQLITE_IOERR_DELETE;
  return below_->xDelete(below_, path, syncFolder);
}

int CommitRounds::Read(HeldFile& file, void* to, int count, sqlite3_int64 at) {
  HeedTakingBack();
  // A commit reads nothing that it has written; to take it back, SQLite reads the journals.
  if (file.Holds() && Gathers()) {
    spoiled_ = superJournal_;
    TakeBack();
  }
  return file.Read(to, count, at);
}

int CommitRounds::Write(HeldFile& file, const void* bytes, int count, sqlite3_int64 at) {
  HeedTakingBack();
  file.NoteChange(bytes, count, at);
  if (IsToHold(file)) return file.Hold(bytes, count, at);
  return file.Below()->pMethods->xWrite(file.Below(), bytes, count, at);
}

int CommitRounds::Resize(HeldFile& file, sqlite3_int64 size) {
  HeedTakingBack();
  if (IsToHold(file)) return file.HoldSize(size);
  return file.Below()->pMethods->xTruncate(file.Below(), size);
}

int CommitRounds::Sync(HeldFile& file, int flags) {
  HeedTakingBack();
  Part* const part = PartOf(file);
  if (part == nullptr) return file.Sync(flags);
  (file.IsStore() || part->contentSync != 0 ? part->heldSync : part->contentSync) = flags;
  return SQLITE_OK;
}

// Not where a journal counts already: its store has been changed.
bool CommitRounds::MayGather() {
  return std::ranges::none_of(files_, [](const auto& file) { return file->IsJournal() && file->IsHot(); });
}

void CommitRounds::Gather(HeldFile& superJournal) {
  superJournal_ = superJournal.Path();
  spoiled_.clear();
  parts_.clear();
  for (const auto& file : files_) {
    if (file->IsJournal() || file->IsStore() || file.get() == &superJournal) parts_.push_back({file.get()});
  }
}

CommitRounds::Part* CommitRounds::PartOf(const HeldFile& file) {
  if (!Gathers()) return nullptr;
  const auto found = std::ranges::find(parts_, &file, &Part::file);
  return found == parts_.end() ? nullptr : &*found;
}

// Of a journal the header, which SQLite writes behind the sync of all the rest.
bool CommitRounds::IsToHold(const HeldFile& file) {
  const Part* const part = PartOf(file);
  return part != nullptr && (file.IsStore() || (file.IsJournal() && part->contentSync != 0));
}

void CommitRounds::HeedTakingBack() {
  if (Gathers() && closedSuper_ != nullptr) TakeBack();
}

// SQLite puts its pages and the stores right from the journals, and reads their headers for that. Those that are still held stay so: no
// store has been changed then, and a header may not come to the disk before the journal that it makes count.
void CommitRounds::TakeBack() {
  for (const Part& part : parts_) {
    if (part.file->IsStore()) part.file->Drop();
  }
  closedSuper_.reset();
  superJournal_.clear();
  parts_.clear();
}

int CommitRounds::DoRounds() {
  std::vector<std::function<int()>> contents, headers, stores;
  std::set<std::string> folders;
  for (const Part& part : parts_) {
    HeldFile& file = *part.file;
    if (!file.IsStore() && part.contentSync != 0) {
      folders.insert(FolderOf(file.Path()));
      contents.emplace_back([&file, flags = part.contentSync] { return file.Sync(flags); });
    }
    if (!file.Holds() && part.heldSync == 0) continue;
    (file.IsStore() ? stores : headers).emplace_back([&file, flags = part.heldSync] {
      const int written = file.Release();
      return written != SQLITE_OK || flags == 0 ? written : file.Sync(flags);
    });
  }
  for (const std::string& folder : folders) contents.emplace_back([folder] { return SyncedFolder(folder); });
  for (const auto* round : {&contents, &headers, &stores}) {
    if (const int done = Round(*round); done != SQLITE_OK) return done;
  }
  return SQLITE_OK;
}

// Side by side; the first failure is that of the round, and the error number is its own.
int CommitRounds::Round(const std::vector<std::function<int()>>& waits) {
  struct Outcome {
    int code = SQLITE_OK;
    int error = 0;
  };
  std::vector<Outcome> outcomes(waits.size());
  SideBySide::Pieces pieces;
  for (std::size_t i = 0; i < waits.size(); ++i) {
    pieces.emplace_back([&wait = waits[i], &outcome = outcomes[i]] {
      folderApart = true;
      outcome.code = wait();
      outcome.error = errno;
      folderApart = false;
    });
  }
  sideBySide_.Do(pieces);
  const auto failed = std::ranges::find_if(outcomes, [](const Outcome& outcome) { return outcome.code != SQLITE_OK; });
  if (failed == outcomes.end()) return SQLITE_OK;
  errno = failed->error;
  return failed->code;
}

}  // namespace karvel::sqlite
