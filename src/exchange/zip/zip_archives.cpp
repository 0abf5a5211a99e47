#include "exchange/zip/zip_archives.h"

#include <dirent.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <future>
#include <memory>
#include <numeric>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>

#include "exchange/zip/deflated_file.h"
#include "platform/folders.h"
#include "platform/phase_times.h"
#include "platform/system_error.h"
#include "platform/unfinished_files.h"

namespace karvel {
namespace {

using namespace std::chrono_literals;
using DeflatedFiles = std::vector<DeflatedFile>;

constexpr auto kBetweenPictures = 25ms;
// How far it is, in hundredths, when the files are deflated, and when the archive is written.
constexpr int kDeflated = 45, kWritten = 70, kAll = 100;

struct CloseZip {
  void operator()(zip_t* zip) const { zip_discard(zip); }
};
using Zip = std::unique_ptr<zip_t, CloseZip>;

Status StatusOf(zip_error_t& error, const std::string& path) {
  const std::string message = path + ": " + zip_error_strerror(&error);
  if (zip_error_system_type(&error) == ZIP_ET_SYS && zip_error_code_system(&error) != 0)
    return Status(KindOfSystemError(zip_error_code_system(&error)), message).At(path);
  switch (zip_error_code_zip(&error)) {
    case ZIP_ER_NOENT:
      return Status(ErrorKind::Missing, message).At(path);
    case ZIP_ER_MEMORY:
    case ZIP_ER_INTERNAL:
      return Status(ErrorKind::Other, message).At(path);
    default:
      return Status(ErrorKind::Damaged, message).At(path);
  }
}

Status Open(const std::string& path, int flags, Zip& zip) {
  int code = 0;
  zip.reset(zip_open(path.c_str(), flags, &code));
  if (zip) return {};
  const int systemError = errno;
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  if (zip_error_system_type(&error) == ZIP_ET_SYS) zip_error_set(&error, code, systemError);
  Status failed = StatusOf(error, path);
  zip_error_fini(&error);
  return failed;
}

// Hands a deflated file to libzip as it is.
class DeflatedSource {
 public:
  static zip_source_t* Of(zip_t* zip, const DeflatedFile& file) {
    auto source = std::make_unique<DeflatedSource>(file);
    zip_source_t* const made = zip_source_function(zip, Answer, source.get());
    if (made != nullptr) std::ignore = source.release();
    return made;
  }
  explicit DeflatedSource(const DeflatedFile& file) : file_(file) {}

 private:
  static zip_int64_t Answer(void* self, void* data, zip_uint64_t count, zip_source_cmd_t command) {
    auto* const source = static_cast<DeflatedSource*>(self);
    switch (command) {
      case ZIP_SOURCE_OPEN:
        source->at_ = 0;
        return 0;
      case ZIP_SOURCE_READ:
        return source->Read(data, count);
      case ZIP_SOURCE_CLOSE:
        return 0;
      case ZIP_SOURCE_STAT:
        return source->Tell(static_cast<zip_stat_t*>(data));
      case ZIP_SOURCE_ERROR:
        std::memset(data, 0, 2 * sizeof(int));  // nothing fails here
        return 2 * sizeof(int);
      case ZIP_SOURCE_FREE:
        delete source;
        return 0;
      case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_READABLE;
      default:
        return -1;
    }
  }

  zip_int64_t Read(void* to, zip_uint64_t most) {
    const std::size_t count = std::min<std::size_t>(most, file_.count - at_);
    std::memcpy(to, file_.bytes.get() + at_, count);
    at_ += count;
    return static_cast<zip_int64_t>(count);
  }

  zip_int64_t Tell(zip_stat_t* stat) const {
    zip_stat_init(stat);
    stat->valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD | ZIP_STAT_MTIME;
    stat->size = file_.size;
    stat->comp_size = file_.count;
    stat->crc = file_.sum;
    stat->comp_method = ZIP_CM_DEFLATE;
    stat->mtime = file_.changed;
    return sizeof(*stat);
  }

  const DeflatedFile& file_;
  std::size_t at_ = 0;
};

// Two hands tell how far it is, and neither takes it back.
void RaiseTo(std::atomic<int>& percent, int reached) {
  for (int seen = percent; seen < reached && !percent.compare_exchange_weak(seen, reached);) {
  }
}

// Does its part of the work with one of the files.
using Hand = std::function<Status(std::size_t file)>;

// The files one after the other by two hands, each taking the largest that is left. Tells the bytes that are done after each.
Status ByTwoHands(const std::vector<std::int64_t>& sizes, const std::function<Hand()>& makeHand,
                  const std::function<void(double part)>& tell) {
  std::vector<std::size_t> order(sizes.size());
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::sort(order, [&](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
  const auto all = static_cast<double>(std::accumulate(sizes.begin(), sizes.end(), std::int64_t{1}));
  std::atomic<std::size_t> next = 0;
  std::atomic<std::int64_t> done = 0;
  const auto takeAll = [&]() -> Status {
    const Hand hand = makeHand();
    for (std::size_t taken = next++; taken < order.size(); taken = next++) {
      if (Status worked = hand(order[taken]); !worked.Ok()) return worked;
      tell(static_cast<double>(done += sizes[order[taken]]) / all);
    }
    return {};
  };
  std::future<Status> second;
  try {
    second = std::async(std::launch::async, takeAll);
  } catch (const std::system_error&) {
    second = {};  // one hand does it too
  }
  Status outcome = takeAll();
  if (second.valid()) {
    const Status other = second.get();
    if (outcome.Ok()) outcome = other;
  }
  return outcome;
}

Status DeflateAll(const std::vector<Archives::Item>& items, DeflatedFiles& files, std::atomic<int>& percent) {
  files.resize(items.size());
  std::vector<std::int64_t> sizes(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    struct stat info{};
    sizes[i] = stat(items[i].path.c_str(), &info) == 0 ? info.st_size : 0;
  }
  const auto deflate = [&](std::size_t i) { return Deflate(items[i].path, files[i]); };
  return ByTwoHands(sizes, [&] { return Hand(deflate); }, [&](double part) { RaiseTo(percent, static_cast<int>(kDeflated * part)); });
}

// Hears how far the writing is, and has the disk keep up with it: where it had the whole archive still to write at the end, a posting that
// syncs meanwhile would wait for all of it.
class Writing {
 public:
  Writing(std::string path, std::atomic<int>& percent) : path_(std::move(path)), percent_(percent) {}
  ~Writing() {
    if (file_ >= 0) close(file_);
  }
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;

  void Follow(double part) {
    percent_ = kDeflated + static_cast<int>(part * (kWritten - kDeflated));
    if (file_ < 0) file_ = OpenWritten();
    if (file_ >= 0) sync_file_range(file_, 0, 0, SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE);
  }

 private:
  // libzip writes under the name with an ending of its own, and renames at its end.
  [[nodiscard]] int OpenWritten() const {
    const std::string folder = FolderOf(path_), begin = path_.substr(path_.rfind('/') + 1) + ".";
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) return -1;
    while (const dirent* const entry = readdir(entries.get()))
      if (std::string_view(entry->d_name).starts_with(begin))
        return open((folder + "/" + entry->d_name).c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
    return -1;
  }

  const std::string path_;
  std::atomic<int>& percent_;
  int file_ = -1;
};

Status WriteZip(const std::string& path, const std::vector<Archives::Item>& items, const DeflatedFiles& files, std::atomic<int>& percent) {
  Zip zip;
  if (Status opened = Open(path, ZIP_CREATE | ZIP_EXCL, zip); !opened.Ok()) return opened;
  for (std::size_t i = 0; i < items.size(); ++i) {
    zip_source_t* const source = DeflatedSource::Of(zip.get(), files[i]);
    const zip_int64_t index = source != nullptr ? zip_file_add(zip.get(), items[i].name.c_str(), source, ZIP_FL_ENC_UTF_8) : -1;
    if (index < 0) {
      if (source != nullptr) zip_source_free(source);
      return StatusOf(*zip_get_error(zip.get()), path);
    }
  }
  Writing writing(path, percent);
  zip_register_progress_callback_with_state(
      zip.get(), 0.01, [](zip_t*, double part, void* to) { static_cast<Writing*>(to)->Follow(part); }, nullptr, &writing);
  if (zip_close(zip.get()) != 0) return StatusOf(*zip_get_error(zip.get()), path);
  std::ignore = zip.release();
  return {};
}

// On the disk, and no longer in memory: what is read afterwards is what the disk holds.
Status SyncOut(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (file < 0) return StatusOfSystemError(errno, path);
  const int error = fsync(file) == 0 ? 0 : errno;
  posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
  close(file);
  return StatusOfSystemError(error, path);
}

Status ChangedWhileRead(const std::string& path, const std::string& name) {
  return Status(ErrorKind::Damaged, fmt::format("{}: {} reads back as something else", path, name)).At(path);
}

// Reads a file of an archive from one end to the other; libzip compares its sum. `take` tells whether to go on.
template <typename Take>
Status ReadItem(zip_t* zip, zip_uint64_t index, const std::string& path, Take take) {
  const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(zip, index, 0), zip_fclose);
  if (!file) return StatusOf(*zip_get_error(zip), path);
  std::vector<char> piece(1 << 18);
  for (;;) {
    const zip_int64_t count = zip_fread(file.get(), piece.data(), piece.size());
    if (count < 0) return StatusOf(*zip_file_get_error(file.get()), path);
    if (count == 0) return {};
    if (Status taken = take(std::string_view(piece.data(), static_cast<std::size_t>(count))); !taken.Ok()) return taken;
  }
}

// Reads one file of the archive, and holds it against what was packed; `advanced` hears how many bytes more.
Status ReadItemBack(zip_t* zip, std::size_t i, const std::string& path, const Archives::Item& item, const DeflatedFile& file,
                    const std::function<void(std::size_t)>& advanced) {
  zip_stat_t stat;
  if (zip_stat_index(zip, i, 0, &stat) != 0) return StatusOf(*zip_get_error(zip), path);
  if (stat.name != item.name || stat.size != file.size || stat.crc != file.sum) return ChangedWhileRead(path, item.name);
  std::uint64_t count = 0;
  const Status read = ReadItem(zip, i, path, [&](std::string_view piece) {
    count += piece.size();
    advanced(piece.size());
    return Status();
  });
  return read.Ok() && count != file.size ? ChangedWhileRead(path, item.name) : read;
}

// Each hand reads with a handle of its own.
Status ReadBack(const std::string& path, const std::vector<Archives::Item>& items, const DeflatedFiles& files, std::atomic<int>& percent) {
  std::vector<std::int64_t> sizes;
  for (const DeflatedFile& file : files) sizes.push_back(static_cast<std::int64_t>(file.size));
  const auto all = std::accumulate(sizes.begin(), sizes.end(), std::int64_t{1});
  std::atomic<std::int64_t> done = 0;
  const auto advanced = [&](std::size_t bytes) {
    RaiseTo(percent, kWritten + static_cast<int>((kAll - kWritten) * (done += static_cast<std::int64_t>(bytes)) / all));
  };
  const auto makeHand = [&]() -> Hand {
    const auto zip = std::make_shared<Zip>();
    const Status opened = Open(path, ZIP_RDONLY | ZIP_CHECKCONS, *zip);
    return
        [&, zip, opened](std::size_t i) { return opened.Ok() ? ReadItemBack(zip->get(), i, path, items[i], files[i], advanced) : opened; };
  };
  return ByTwoHands(sizes, makeHand, [](double) {});
}

Status PutInPlace(const std::string& unfinished, const std::string& archive) {
  if (rename(unfinished.c_str(), archive.c_str()) != 0) return StatusOfSystemError(errno, archive);
  return StatusOfSystemError(SyncFolder(FolderOf(archive)), archive);
}

Status PackWhole(const std::string& archive, const std::vector<Archives::Item>& items, std::atomic<int>& percent) {
  const std::string unfinished = UnfinishedIn(FolderOf(archive));
  DeflatedFiles files;
  PhaseTimes times;
  Status done = DeflateAll(items, files, percent);
  times.Note("deflated");
  if (done.Ok()) done = WriteZip(unfinished, items, files, percent);
  if (done.Ok()) done = SyncOut(unfinished);
  times.Note("written");
  if (done.Ok()) done = ReadBack(unfinished, items, files, percent);
  times.Note("read back");
  if (done.Ok()) done = PutInPlace(unfinished, archive);
  times.Tell("archive");
  if (!done.Ok()) unlink(unfinished.c_str());
  return done;
}

// A name of an archive could lead anywhere.
bool IsPlainName(std::string_view name) {
  if (name.empty() || name.starts_with('/') || name.find('\\') != std::string_view::npos) return false;
  while (!name.empty()) {
    const std::string_view piece = name.substr(0, name.find('/'));
    if (piece.empty() || piece == "." || piece == "..") return false;
    name.remove_prefix(std::min(piece.size() + 1, name.size()));
  }
  return true;
}

Status MakeFolders(const std::string& folder, const std::string& name) {
  for (std::size_t at = name.find('/'); at != std::string::npos; at = name.find('/', at + 1)) {
    const std::string path = folder + "/" + name.substr(0, at);
    if (mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) return StatusOfSystemError(errno, path);
  }
  return {};
}

Status WriteItem(zip_t* zip, zip_uint64_t index, const std::string& archive, const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  if (file < 0) return StatusOfSystemError(errno, path);
  Status done = ReadItem(zip, index, archive, [&](std::string_view piece) -> Status {
    while (!piece.empty()) {
      const ssize_t written = write(file, piece.data(), piece.size());
      if (written < 0 && errno != EINTR) return StatusOfSystemError(errno, path);
      if (written > 0) piece.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
  });
  if (done.Ok() && fsync(file) != 0) done = StatusOfSystemError(errno, path);
  close(file);
  return done.Ok() ? StatusOfSystemError(SyncFolder(FolderOf(path)), path) : done;
}

}  // namespace

Status ZipArchives::Pack(const std::string& archive, const std::vector<Item>& items, const Progress& progress) {
  SweepUnfinished(FolderOf(archive));
  std::atomic<int> percent = 0;
  std::future<Status> packed;
  try {
    packed = std::async(std::launch::async, [&] { return PackWhole(archive, items, percent); });
  } catch (const std::system_error&) {
    return PackWhole(archive, items, percent);
  }
  while (packed.wait_for(kBetweenPictures) != std::future_status::ready) progress(percent);
  return packed.get();
}

Status ZipArchives::Unpack(const std::string& archive, const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  Zip zip;
  if (Status opened = Open(archive, ZIP_RDONLY | ZIP_CHECKCONS, zip); !opened.Ok()) return opened;
  const zip_int64_t count = zip_get_num_entries(zip.get(), 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    const char* const found = zip_get_name(zip.get(), index, 0);
    const std::string name = found != nullptr ? found : "";
    if (!IsPlainName(name) || name.ends_with('/')) return Status(ErrorKind::Damaged, archive + ": it holds \"" + name + "\"").At(archive);
    if (Status made = MakeFolders(folder, name); !made.Ok()) return made;
    if (Status written = WriteItem(zip.get(), index, archive, folder + "/" + name); !written.Ok()) return written;
    names.push_back(name);
  }
  return {};
}

}  // namespace karvel
