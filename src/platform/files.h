#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace karvel {

// The place of a name in a folder, whether the folder's path ends in a separator or not.
std::string PathIn(const std::string& folder, std::string_view name);

// Whether a text names one file in a folder, on the desk's systems as on others: not empty, no folder, drive, wildcard or quote in it.
bool IsPlainName(std::string_view text);

// The file system by the desk's own paths: drives and shares in text ("C:\KarvelData\Cari.mdb", "\\HOST\Share\x"), names that match
// ignoring case, program folder apart. One mapping to real paths, RealPath.
//
// KARVEL_HOME (default: the user's data folder, velmora-karvel) holds C/ for drive C: and net/HOST/… for shares.
// Further drive letters, D: on, are the mounted removable disks in the order of their names.
class Files {
 public:
  virtual ~Files() = default;
  // The place on this machine. Existing names are matched ignoring case, piece by piece; what doesn't exist keeps its spelling.
  // A path that is already this machine's own (begins with "/") comes back as it is.
  [[nodiscard]] virtual std::string RealPath(const std::string& path) const = 0;
  // The folder of the templates and company files, this machine's form, no slash at the end.
  [[nodiscard]] virtual std::string ProgramFolder() const = 0;
  // KARVEL_HOME, this machine's form.
  [[nodiscard]] virtual std::string HomeFolder() const = 0;
  [[nodiscard]] virtual bool Exists(const std::string& path) const = 0;
  // A folder that is there, with something in it or nothing.
  [[nodiscard]] virtual bool IsFolder(const std::string& path) const = 0;
  // With its parents. A folder that exists already is no failure.
  virtual Status MakeFolder(const std::string& path) = 0;
  // The whole content. `bytes` stays as it was on a failure; Missing where there is no such file.
  virtual Status Read(const std::string& path, std::string& bytes) const = 0;
  // Writes the whole file or nothing: to a neighbour, synced, then renamed over the target.
  virtual Status Write(const std::string& path, const std::string& bytes) = 0;
  // Copies whole or not at all, in the same way. Replaces an existing target.
  virtual Status Copy(const std::string& from, const std::string& to) = 0;
  // The same, but a target that exists stays as it is, even one that another terminal puts there at this very moment. That is no failure.
  virtual Status CopyNew(const std::string& from, const std::string& to) = 0;
  // Also onto another drive. Replaces an existing target.
  virtual Status Move(const std::string& from, const std::string& to) = 0;
  // Missing where there is no such file.
  virtual Status Delete(const std::string& path) = 0;
  // The names in a folder, sorted by bytes; none where it can't be read.
  [[nodiscard]] virtual std::vector<std::string> List(const std::string& folder) const = 0;
  // The drives that are there now, C: first: "C:", and behind the letter of a removable one what the disk is called, "D: KINGSTON".
  [[nodiscard]] virtual std::vector<std::string> Drives() const = 0;
  // The free bytes on the disk that a path lies on, or will lie on; nothing where that can't be told.
  [[nodiscard]] virtual std::optional<std::uint64_t> Room(const std::string& path) const = 0;
};

}  // namespace karvel
