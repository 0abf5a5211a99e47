#include "store/sqlite/folder_copy.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <map>
#include <utility>
#include <vector>

#include "platform/system_error.h"
#include "store/sqlite/change_log.h"
#include "store/sqlite/data_folder.h"
#include "store/sqlite/errors.h"

namespace karvel::sqlite {
namespace {

using namespace std::chrono_literals;

constexpr auto kSlice = 10ms;
constexpr std::int64_t kPiece = 256 * 1024;
// So many bytes are copied while everybody waits; after so many rounds, whatever is left.
constexpr std::int64_t kFew = 1024 * 1024;
constexpr int kMostRounds = 20;
constexpr std::int64_t kUnsynced = 4 * 1024 * 1024;

// A store and its copy.
class CopiedFile {
 public:
  CopiedFile(Connection& connection, std::string schema)
      : connection_(connection), schema_(std::move(schema)), path_(connection.PathOf(schema_)) {}
  ~CopiedFile() {
    if (to_ >= 0) close(to_);
  }
  CopiedFile(const CopiedFile&) = delete;
  CopiedFile& operator=(const CopiedFile&) = delete;

  // With the write lock, like Look.
  Status Begin(const std::string& folder) {
    to_ = open((folder + path_.substr(path_.rfind('/'))).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (to_ < 0) return StatusOfSystemError(errno, folder);
    if (Status logged = log_.Open(path_); !logged.Ok()) return logged;
    if (Status read = ReadHead(); !read.Ok()) return read;
    counter_ = headCounter_;
    CopyAll();
    return {};
  }

  // What is to be copied now: what was noted since the last look.
  Status Look() {
    if (Status read = ReadHead(); !read.Ok()) return read;
    std::vector<Change> changes;
    bool whole = log_.ReadNew(changes);
    for (const Change& change : changes) {
      if (change.at < 0) whole = false;
      // A commit that a desk died in is taken back to the number before it.
      if (change.counter > counter_ + 1) whole = false;
      if (change.counter != 0) counter_ = change.counter;
      if (change.at >= 0) Add(change.at, change.count);
    }
    whole = whole && counter_ == headCounter_;
    if (whole) return {};
    counter_ = headCounter_;
    CopyAll();
    return log_.Open(path_);
  }

  [[nodiscard]] std::int64_t Left() const {
    std::int64_t left = 0;
    for (const auto& [at, end] : left_) left += std::max<std::int64_t>(0, std::min(end, size_) - at);
    return left;
  }
  [[nodiscard]] std::int64_t Size() const { return size_; }
  // Another program has begun a write-ahead log: the file alone doesn't hold all commits.
  [[nodiscard]] bool HasWriteAheadLog() const { return writeAhead_; }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const std::string& Schema() const { return schema_; }

  // Reads a piece of what is left. Under a lock, for reading at least.
  Status ReadPiece() {
    if (left_.empty()) return {};
    const auto [at, end] = *left_.begin();
    const std::int64_t count = std::min({end, size_, at + kPiece}) - at;
    left_.erase(left_.begin());
    if (count <= 0) return {};
    if (at + count < end) left_[at + count] = end;
    read_.push_back({at, std::vector<char>(static_cast<std::size_t>(count))});
    return Read(read_.back().bytes.data(), count, at);
  }
  // Writes what was read. Under no lock: a disk that is busy takes its time.
  Status WriteRead() {
    for (const Piece& piece : std::exchange(read_, {}))
      if (Status written = Write(piece); !written.Ok()) return written;
    return {};
  }

  void NobodyNotes() { log_.Close(); }
  // When all is read. Under no lock.
  Status Finish() {
    if (Status written = WriteRead(); !written.Ok()) return written;
    return ftruncate(to_, size_) == 0 ? Status() : StatusOfSystemError(errno, path_);
  }

 private:
  struct Piece {
    std::int64_t at;
    std::vector<char> bytes;
  };

  void CopyAll() { left_ = {{0, size_}}; }

  // Pages that touch or overlap are read in one go.
  void Add(std::int64_t at, std::int64_t count) {
    std::int64_t end = at + count;
    auto next = left_.upper_bound(at);
    if (next != left_.begin()) {
      const auto before = std::prev(next);
      if (before->second >= at) {
        at = before->first;
        end = std::max(end, before->second);
        left_.erase(before);
      }
    }
    while (next != left_.end() && next->first <= end) {
      end = std::max(end, next->second);
      next = left_.erase(next);
    }
    left_[at] = end;
  }

  Status ReadHead() {
    std::array<char, 100> head{};
    sqlite3_int64 size = 0;
    sqlite3_file* const file = File();
    if (const int asked = file->pMethods->xFileSize(file, &size); asked != SQLITE_OK) return Failed(asked, "size");
    size_ = size;
    if (Status read = Read(head.data(), head.size(), 0); !read.Ok()) return read;
    headCounter_ = CounterIn(head.data());
    constexpr std::size_t kWriteVersion = 18;
    writeAhead_ = head[kWriteVersion] == 2;
    return {};
  }

  // Read by SQLite's own handle: whoever closed another handle on the file would take away the locks of this whole program.
  sqlite3_file* File() {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection_.Database().getHandle(), schema_.c_str(), SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file));
    return file;
  }

  Status Read(char* to, std::int64_t count, std::int64_t at) {
    sqlite3_file* const file = File();
    const int read = file->pMethods->xRead(file, to, static_cast<int>(count), at);
    // A file that got shorter meanwhile is looked at again.
    return read == SQLITE_OK || read == SQLITE_IOERR_SHORT_READ ? Status() : Failed(read, "read");
  }

  // The disk never has much of it to write, or a posting that syncs meanwhile would wait for all of it.
  Status Write(const Piece& piece) {
    for (std::size_t done = 0; done < piece.bytes.size();) {
      const ssize_t written =
          pwrite(to_, piece.bytes.data() + done, piece.bytes.size() - done, static_cast<off_t>(piece.at) + static_cast<off_t>(done));
      if (written < 0 && errno != EINTR) return StatusOfSystemError(errno, path_ + ": its copy");
      if (written > 0) done += static_cast<std::size_t>(written);
    }
    unsynced_ += static_cast<std::int64_t>(piece.bytes.size());
    if (unsynced_ < kUnsynced) return {};
    unsynced_ = 0;
    sync_file_range(to_, 0, 0, SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE);
    return {};
  }

  Status Failed(int code, const char* what) {
    const Status failed =
        Run(&connection_.Database(), "copy", [&] { throw SQLite::Exception(fmt::format("{}: {} failed", path_, what), code); });
    return failed.At(path_);
  }

  Connection& connection_;
  const std::string schema_, path_;
  int to_ = -1;
  ChangeLog log_;
  std::vector<Piece> read_;
  std::int64_t unsynced_ = 0;
  std::map<std::int64_t, std::int64_t> left_;  // what is to be copied: where it begins, where it ends
  std::int64_t size_ = 0;                      // at the last look
  std::uint32_t headCounter_ = 0;              // at the last look
  std::uint32_t counter_ = 0;                  // as far as it was noted
  bool writeAhead_ = false;
};

class FolderCopy final : public StoresCopy {
 public:
  FolderCopy(Engine& engine, Connection& connection, Patience& patience) : engine_(engine), connection_(connection), patience_(patience) {
    for (const DatabaseFile& file : Catalogue::Files())
      if (InDataFolder(file)) files_.push_back(std::make_unique<CopiedFile>(connection, SchemaOf(file)));
  }

  Status Begin(const std::string& folder) {
    const Status begun = UnderWriteLock([&]() -> Status {
      for (const auto& file : files_) {
        if (Status status = file->Begin(folder); !status.Ok()) return status;
        if (Status status = CheckMode(*file); !status.Ok()) return status;
      }
      return {};
    });
    size_ = Sum(&CopiedFile::Size);
    return begun;
  }

  Status Advance() override {
    const auto end = std::chrono::steady_clock::now() + kSlice;
    while (!done_ && std::chrono::steady_clock::now() < end) {
      const auto unfinished = std::ranges::find_if(files_, [](const auto& file) { return file->Left() > 0; });
      Status advanced = unfinished == files_.end() ? EndRound() : CopyUnderReadLock(**unfinished);
      if (!advanced.Ok()) return advanced;
    }
    return {};
  }

  [[nodiscard]] bool IsDone() const override { return done_; }
  [[nodiscard]] std::int64_t Size() const override { return size_; }
  [[nodiscard]] std::int64_t Copied() const override { return rounds_ > 0 ? size_ : size_ - Sum(&CopiedFile::Left); }

 private:
  template <typename Work>
  Status UnderWriteLock(Work work) {
    Status done = engine_.Begin();
    if (!done.Ok()) return done;
    done = work();
    engine_.Rollback();
    return done;
  }

  Status CopyUnderReadLock(CopiedFile& file) {
    patience_.Renew();
    Status read = Patiently(patience_, [&] {
      Status copied = Run(&connection_.Database(), "copy", [&]() -> Status {
        connection_.Execute("BEGIN");
        connection_.Execute("SELECT count(*) FROM " + file.Schema() + ".sqlite_schema");
        return file.ReadPiece();
      });
      const Status ended = Run(&connection_.Database(), "copy", [&] {
        if (connection_.InTransaction()) connection_.Execute("ROLLBACK");
      });
      return copied.Ok() ? ended : copied;
    });
    return read.Ok() ? file.WriteRead() : read;
  }

  Status EndRound() {
    ++rounds_;
    bool last = false;
    Status ended = UnderWriteLock([&]() -> Status {
      for (const auto& file : files_) {
        if (Status looked = file->Look(); !looked.Ok()) return looked;
        if (Status checked = CheckMode(*file); !checked.Ok()) return checked;
      }
      last = Sum(&CopiedFile::Left) <= kFew || rounds_ >= kMostRounds;
      return last ? ReadRest() : Status();
    });
    if (!ended.Ok() || !last) return ended;
    for (const auto& file : files_) {
      if (Status finished = file->Finish(); !finished.Ok()) return finished;
    }
    done_ = true;
    return {};
  }

  // The moment of the copy.
  Status ReadRest() {
    for (const auto& file : files_) {
      while (file->Left() > 0)
        if (Status read = file->ReadPiece(); !read.Ok()) return read;
      file->NobodyNotes();
    }
    return {};
  }

  static Status CheckMode(const CopiedFile& file) {
    if (!file.HasWriteAheadLog()) return {};
    return Status(ErrorKind::Busy, file.Path() + ": another program keeps a write-ahead log").At(file.Path());
  }

  [[nodiscard]] std::int64_t Sum(std::int64_t (CopiedFile::*what)() const) const {
    std::int64_t sum = 0;
    for (const auto& file : files_) sum += (*file.*what)();
    return sum;
  }

  Engine& engine_;
  Connection& connection_;
  Patience& patience_;
  std::vector<std::unique_ptr<CopiedFile>> files_;
  std::int64_t size_ = 0;
  int rounds_ = 0;
  bool done_ = false;
};

}  // namespace

Status BeginFolderCopy(Engine& engine, Connection& connection, Patience& patience, const std::string& folder,
                       std::unique_ptr<StoresCopy>& copy) {
  auto begun = std::make_unique<FolderCopy>(engine, connection, patience);
  if (Status status = begun->Begin(folder); !status.Ok()) return status;
  copy = std::move(begun);
  return {};
}

}  // namespace karvel::sqlite
