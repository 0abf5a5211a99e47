#include "app/disk_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "app/atomic_file.h"
#include "app/private_files.h"
#include "app/qt_text.h"
#include "platform/folders.h"
#include "platform/system_error.h"
#include "platform/unfinished_files.h"
#include "text/turkish.h"

namespace karvel {
namespace fs = std::filesystem;
namespace {

// A path of the desk, taken apart.
struct Pieces {
  std::string root;  // this machine's folder that the pieces hang under; "" when there is no such drive
  std::vector<std::string> names;
};

bool IsSlash(char letter) {
  return letter == '\\' || letter == '/';
}

std::vector<std::string> Split(std::string_view path) {
  std::vector<std::string> names;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view name = path.substr(0, end);
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.emplace_back(name);
    }
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return names;
}

bool IsThere(const std::string& real) {
  struct stat info{};
  return lstat(real.c_str(), &info) == 0;
}

// The spelling of a name in a folder: as given if it is there, else one that differs in case alone, the first by bytes.
std::string SpellingIn(const std::string& folder, const std::string& name) {
  if (IsThere(folder + "/" + name)) return name;
  std::string found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string candidate = entry->path().filename().string();
    if (EqualText(candidate, name) && (found.empty() || candidate < found)) found = candidate;
  }
  return found.empty() ? name : found;
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

// Absolute, without a slash at the end.
std::string Tidy(const std::string& path) {
  std::string tidy = fs::absolute(path).lexically_normal().string();
  while (tidy.size() > 1 && tidy.back() == '/') tidy.pop_back();
  return tidy;
}

std::string UserDataFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  // A relative XDG_DATA_HOME counts as none, else the data would be somewhere else whenever the desk is started from another folder.
  return ToUtf8(QDir::isAbsolutePath(folder) ? folder : QDir::homePath() + QStringLiteral("/.local/share"));
}

bool HoldsTemplates(const std::string& folder) {
  return IsThere(folder + "/" + SpellingIn(folder, "Cari.mdb"));
}

Status NoSuchDrive(const std::string& path) {
  return {ErrorKind::Missing, path + ": no such drive"};
}

// Reads a file piece by piece into `take`.
template <typename Take>
Status ReadPieces(const std::string& real, bool followsLink, Take take) {
  const int handle = followsLink ? open(real.c_str(), O_RDONLY | O_CLOEXEC) : OpenPrivate(real, O_RDONLY);
  if (handle < 0) return StatusOfSystemError(errno, real);
  std::vector<char> piece(1 << 16);
  Status status;
  for (;;) {
    const ssize_t count = read(handle, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) status = StatusOfSystemError(errno, real);
    if (count <= 0) break;
    take(std::string_view(piece.data(), static_cast<std::size_t>(count)));
  }
  close(handle);
  return status;
}

}  // namespace

FilePlaces FilePlaces::OfThisMachine(const std::string& executableFolder) {
  FilePlaces places;
  const std::string home = Environment("KARVEL_HOME");
  places.home = Tidy(home.empty() ? UserDataFolder() + "/velmora-karvel" : home);
  const std::string program = Environment("KARVEL_PROGRAM");
  const std::string share = executableFolder + "/../share/velmora-karvel";
  const bool apart = !HoldsTemplates(executableFolder) && HoldsTemplates(share);
  places.program = Tidy(!program.empty() ? program : apart ? share : executableFolder);
  places.disks = [] {
    std::vector<std::string> mountPoints;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) mountPoints.push_back(ToUtf8(volume.rootPath()));
    return RemovableDisks(std::move(mountPoints));
  };
  return places;
}

std::vector<std::string> RemovableDisks(std::vector<std::string> mountPoints) {
  std::erase_if(mountPoints, [](const std::string& point) { return !point.starts_with("/media/") && !point.starts_with("/run/media/"); });
  std::ranges::sort(mountPoints);
  const auto again = std::ranges::unique(mountPoints);
  mountPoints.erase(again.begin(), again.end());
  return mountPoints;
}

DiskFiles::DiskFiles(FilePlaces places) : places_(std::move(places)) {}

std::string DiskFiles::RealPath(const std::string& path) const {
  if (path.empty() || path.front() == '/') return path;
  Pieces pieces;
  if (path.size() >= 2 && IsSlash(path[0]) && IsSlash(path[1])) {
    pieces = {places_.home + "/net", Split(path)};
  } else if (path.size() >= 2 && path[1] == ':') {
    const char drive = static_cast<char>(path[0] & ~0x20);
    pieces.names = Split(std::string_view(path).substr(2));
    if (drive == 'C') {
      pieces.root = places_.home + "/C";
    } else if (drive >= 'D' && drive <= 'Z' && places_.disks) {
      const std::vector<std::string> disks = places_.disks();
      const auto number = static_cast<std::size_t>(drive - 'D');
      if (number < disks.size()) pieces.root = disks[number];
    }
    if (pieces.root.empty()) return "";
  } else if (IsSlash(path[0])) {
    pieces = {places_.home + "/C", Split(path)};
  } else {
    pieces = {places_.program, Split(path)};
  }
  std::string real = pieces.root;
  for (const std::string& name : pieces.names) real += "/" + SpellingIn(real, name);
  return real;
}

std::string DiskFiles::DeskPath(const std::string& realPath) const {
  const auto under = [&](const std::string& root, const std::string& drive) -> std::string {
    if (!realPath.starts_with(root) || (realPath.size() > root.size() && realPath[root.size()] != '/')) return "";
    std::string rest = realPath.substr(root.size());
    std::replace(rest.begin(), rest.end(), '/', '\\');
    return drive + (rest.empty() ? "\\" : rest);
  };
  if (std::string path = under(places_.home + "/C", "C:"); !path.empty()) return path;
  if (std::string path = under(places_.home + "/net", "\\"); !path.empty()) return path;
  char drive = 'D';
  for (const std::string& disk : places_.disks ? places_.disks() : std::vector<std::string>()) {
    if (drive > 'Z') break;
    if (std::string path = under(disk, std::string(1, drive) + ":"); !path.empty()) return path;
    ++drive;
  }
  return realPath;
}

bool DiskFiles::Exists(const std::string& path) const {
  const std::string real = RealPath(path);
  return !real.empty() && access(real.c_str(), F_OK) == 0;
}

bool DiskFiles::IsFolder(const std::string& path) const {
  const std::string real = RealPath(path);
  std::error_code error;
  return !real.empty() && fs::is_directory(real, error);
}

Status DiskFiles::MakeFolder(const std::string& path) {
  const std::string real = RealPath(path);
  if (real.empty()) return NoSuchDrive(path);
  return MakePrivateFolder(real);
}

// An installation may lay its templates as links.
bool DiskFiles::IsAtHome(const std::string& real) const {
  return real.starts_with(places_.home + "/");
}

Status DiskFiles::Read(const std::string& path, std::string& bytes) const {
  const std::string real = RealPath(path);
  if (real.empty()) return NoSuchDrive(path);
  std::string content;
  Status status = ReadPieces(real, !IsAtHome(real), [&](std::string_view piece) { content += piece; });
  if (status.Ok()) bytes = std::move(content);
  return status;
}

Status DiskFiles::Write(const std::string& path, const std::string& bytes) {
  const std::string real = RealPath(path);
  if (real.empty()) return NoSuchDrive(path);
  AtomicFile file(real);
  file.Append(bytes);
  return file.Finish();
}

Status DiskFiles::Copy(const std::string& from, const std::string& to) {
  return CopyOver(from, to, true);
}
Status DiskFiles::CopyNew(const std::string& from, const std::string& to) {
  return CopyOver(from, to, false);
}

Status DiskFiles::CopyOver(const std::string& from, const std::string& to, bool replace) {
  const std::string realFrom = RealPath(from), realTo = RealPath(to);
  if (realFrom.empty()) return NoSuchDrive(from);
  if (realTo.empty()) return NoSuchDrive(to);
  AtomicFile file(realTo);
  const Status status = ReadPieces(realFrom, !IsAtHome(realFrom), [&](std::string_view piece) { file.Append(piece); });
  return status.Ok() ? file.Finish(replace) : status;
}

Status DiskFiles::Move(const std::string& from, const std::string& to) {
  const std::string realFrom = RealPath(from), realTo = RealPath(to);
  if (realFrom.empty()) return NoSuchDrive(from);
  if (realTo.empty()) return NoSuchDrive(to);
  if (rename(realFrom.c_str(), realTo.c_str()) == 0) return {};
  if (errno != EXDEV) return StatusOfSystemError(errno, realFrom);
  // Onto another disk.
  const Status status = Copy(from, to);
  return status.Ok() ? Delete(from) : status;
}

Status DiskFiles::Delete(const std::string& path) {
  const std::string real = RealPath(path);
  if (real.empty()) return NoSuchDrive(path);
  return std::remove(real.c_str()) == 0 ? Status() : StatusOfSystemError(errno, real);
}

std::vector<std::string> DiskFiles::List(const std::string& folder) const {
  std::vector<std::string> names;
  const std::string real = RealPath(folder);
  if (real.empty()) return names;
  std::error_code error;
  for (fs::directory_iterator entry(real, error), end; !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (!IsUnfinished(name)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> DiskFiles::Drives() const {
  std::vector<std::string> drives{"C:"};
  char letter = 'D';
  for (const std::string& disk : places_.disks ? places_.disks() : std::vector<std::string>()) {
    if (letter > 'Z') break;
    drives.push_back(std::string(1, letter++) + ": " + fs::path(disk).filename().string());
  }
  return drives;
}

std::optional<std::uint64_t> DiskFiles::Room(const std::string& path) const {
  std::string real = RealPath(path);
  if (real.empty()) return std::nullopt;
  while (real.size() > 1 && !IsThere(real)) real = FolderOf(real);
  std::error_code error;
  const fs::space_info space = fs::space(real, error);
  return error ? std::nullopt : std::optional<std::uint64_t>(space.available);
}

}  // namespace karvel
