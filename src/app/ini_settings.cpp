#include "app/ini_settings.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

#include "app/atomic_file.h"
#include "app/private_files.h"
#include "platform/log.h"
#include "platform/system_error.h"
#include "settings/settings_table.h"
#include "settings/slip_number.h"

namespace karvel {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr std::chrono::seconds kPatience{2};

// Other users must be shut out before the first password is written.
std::string Prepared(const std::string& homeFolder) {
  if (const Status made = MakePrivateFolder(homeFolder); !made.Ok()) Log("settings: " + made.Message());
  const std::string path = homeFolder + "/settings.ini";
  const int handle = OpenPrivate(path, O_RDWR | O_CREAT);
  if (handle >= 0) {
    if (fchmod(handle, kOwnerOnly) != 0) Log("settings: can't close the file to others");
    close(handle);
  }
  return path;
}

std::string Address(std::string_view application, std::string_view section, std::string_view key) {
  return std::string(application) + "/" + std::string(section) + "/" + std::string(key);
}

std::string SlipNumberAddress() {
  const SettingEntry& entry = EntryOf(Setting::SlipNo);
  return Address(FixedApplication(entry.application), entry.section, entry.key);
}

bool IsSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
         a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// Reads a whole file, and tells which one it was.
int ReadBytes(const std::string& path, std::string& bytes, struct stat& info) {
  const int handle = OpenPrivate(path, O_RDONLY);
  if (handle < 0) return errno;
  int error = fstat(handle, &info) == 0 ? 0 : errno;
  std::array<char, 4096> piece;
  while (error == 0) {
    const ssize_t count = read(handle, piece.data(), piece.size());
    if (count == 0) break;
    if (count > 0) {
      bytes.append(piece.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      error = errno;
    }
  }
  close(handle);
  return error;
}

// A name beside the file that is not in use, with the time in it.
std::string NameAside(const std::string& path) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> stamp{};
  std::strftime(stamp.data(), stamp.size(), ".bozuk-%Y%m%d-%H%M%S", &local);
  const std::string first = path + stamp.data();
  std::string name = first;
  for (int number = 2; access(name.c_str(), F_OK) == 0; ++number) name = first + "-" + std::to_string(number);
  return name;
}

}  // namespace

IniSettings::IniSettings(const std::string& homeFolder)
    : path_(Prepared(homeFolder)), patience_(kPatience), lock_(homeFolder + "/lock/settings.lock") {}

Status IniSettings::Read() const {
  std::string bytes;
  struct stat info{};
  const int error = ReadBytes(path_, bytes, info);
  seen_ = info;
  IniText text = ReadIni(bytes);
  Status read;
  // Where there is no file, no terminal has saved anything yet.
  if (error != 0 && error != ENOENT) {
    read = StatusOfSystemError(error, path_).About(Subject::Settings);
  } else if (!text.whole) {
    read = Status(ErrorKind::Damaged, path_ + ": not a settings file").At(path_).About(Subject::Settings);
  }
  if (!read.Ok() && readable_.Ok()) Log("settings: " + read.Message());
  // A desk that runs goes on with what it read while the file was whole.
  if (read.Ok() || values_.empty()) values_ = std::move(text.values);
  return readable_ = read;
}

Status IniSettings::ReadIfChanged() const {
  struct stat info{};
  const bool same = stat(path_.c_str(), &info) == 0 && seen_.st_ino != 0 && IsSameFile(info, seen_);
  return same ? readable_ : Read();
}

Status IniSettings::Write(const std::string& address, const std::string& value) {
  const auto found = values_.find(address);
  if (found != values_.end() && found->second == value) return {};
  IniValues changed = values_;
  changed[address] = value;
  AtomicFile file(path_);
  file.Append(WriteIni(changed));
  Status written = file.Finish();
  if (written.Ok()) values_ = std::move(changed);
  return written.About(Subject::Settings);
}

Status IniSettings::InLine(const std::function<Status()>& work) {
  if (depth_ == 0) {
    patience_.Renew();
    if (Status taken = lock_.WaitFor(patience_); !taken.Ok()) return taken.About(Subject::Settings);
    patience_.Granted();
  }
  ++depth_;
  Status done = Read();
  if (done.Ok()) done = work();
  if (--depth_ == 0) lock_.Release();
  return done;
}

std::expected<std::string, Status> IniSettings::MakeReady() {
  if (Read().Ok()) return "";
  patience_.Renew();
  if (Status taken = lock_.WaitFor(patience_); !taken.Ok()) return std::unexpected(taken.About(Subject::Settings));
  // Another terminal that started at the same time may have put it aside by now.
  auto outcome = Read().Ok() ? std::expected<std::string, Status>("") : PutAside();
  lock_.Release();
  return outcome;
}

// The old file stands under both names until the new one takes its place: at no moment is there an empty one, which would read as new.
std::expected<std::string, Status> IniSettings::PutAside() {
  const std::string aside = NameAside(path_);
  const bool linked = link(path_.c_str(), aside.c_str()) == 0;
  if (!linked && rename(path_.c_str(), aside.c_str()) != 0)
    return std::unexpected(StatusOfSystemError(errno, path_).About(Subject::Settings));
  IniValues begun = values_;
  const std::string slip = SlipNumberAddress();
  const auto last = begun.find(slip);
  begun[slip] = UncertainSlipNumber(last == begun.end() ? "" : last->second);
  AtomicFile file(path_);
  file.Append(WriteIni(begun));
  if (Status written = file.Finish(); !written.Ok()) {
    const bool back = linked ? unlink(aside.c_str()) == 0 : rename(aside.c_str(), path_.c_str()) == 0;
    if (!back) Log("settings: " + aside + " stays beside the old file");
    return std::unexpected(written.About(Subject::Settings));
  }
  if (chmod(path_.c_str(), kOwnerOnly) != 0) Log("settings: can't close the file to others");
  values_ = {};
  readable_ = {};
  return aside;
}

std::string IniSettings::Get(const std::string& application, const std::string& section, const std::string& key,
                             const std::string& preset) const {
  ReadIfChanged().Ignore();
  const auto found = values_.find(Address(application, section, key));
  return found == values_.end() ? preset : found->second;
}

Status IniSettings::Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) {
  const std::string address = Address(application, section, key);
  const Status saved = InLine([&] { return Write(address, value); });
  if (!saved.Ok()) Log("settings: can't save " + address + ": " + saved.Message());
  return saved;
}

std::expected<std::string, Status> IniSettings::Change(const std::string& application, const std::string& section, const std::string& key,
                                                       const std::string& preset,
                                                       const std::function<std::string(const std::string&)>& change) {
  const std::string address = Address(application, section, key);
  std::string value;
  const Status changed = InLine([&]() -> Status {
    const auto found = values_.find(address);
    value = change(found == values_.end() ? preset : found->second);
    return Write(address, value);
  });
  if (!changed.Ok()) return std::unexpected(changed);
  return value;
}

std::string IniSettings::Text(const Shown& shown) const {
  ReadIfChanged().Ignore();
  IniValues values;
  for (const auto& [address, value] : values_)
    if (auto given = shown(address.substr(address.rfind('/') + 1), value)) values.emplace(address, std::move(*given));
  return WriteIni(values);
}

}  // namespace karvel
