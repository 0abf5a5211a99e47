// The file system behind the desk's paths: the one place that knows how Windows paths lie on this machine.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace karvel {

// Where things lie. All paths are this machine's own, without a slash at the end.
struct FilePlaces {
  std::string home;
  std::string program;
  // The removable disks, D: first. Looked up at every use, for disks come and go. Every mounted disk is asked for its size on the way, so a
  // network disk that doesn't answer delays this.
  std::function<std::vector<std::string>()> disks;

  // From KARVEL_HOME and KARVEL_PROGRAM, else the user's data folder, and the executable's folder or its share folder,
  // whichever holds the templates.
  static FilePlaces OfThisMachine(const std::string& executableFolder);
};

// Those of the machine's mount points that lie under /media or /run/media, in the order of their names, each once.
std::vector<std::string> RemovableDisks(std::vector<std::string> mountPoints);

class DiskFiles : public Files {
 public:
  explicit DiskFiles(FilePlaces places);

  // "" for a drive that isn't there. A path without a drive lies in the program folder. ".." never leads out of a drive or share.
  [[nodiscard]] std::string RealPath(const std::string& path) const override;
  // The other way round: C:\… for what lies on a drive or share, else the path itself.
  [[nodiscard]] std::string DeskPath(const std::string& realPath) const;
  [[nodiscard]] std::string ProgramFolder() const override { return places_.program; }
  [[nodiscard]] std::string HomeFolder() const override { return places_.home; }
  [[nodiscard]] bool Exists(const std::string& path) const override;
  [[nodiscard]] bool IsFolder(const std::string& path) const override;
  Status MakeFolder(const std::string& path) override;
  Status Read(const std::string& path, std::string& bytes) const override;
  Status Write(const std::string& path, const std::string& bytes) override;
  Status Copy(const std::string& from, const std::string& to) override;
  Status CopyNew(const std::string& from, const std::string& to) override;
  Status Move(const std::string& from, const std::string& to) override;
  // A file or an empty folder.
  Status Delete(const std::string& path) override;
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override;
  [[nodiscard]] std::vector<std::string> Drives() const override;
  [[nodiscard]] std::optional<std::uint64_t> Room(const std::string& path) const override;

 private:
  [[nodiscard]] bool IsAtHome(const std::string& real) const;
  Status CopyOver(const std::string& from, const std::string& to, bool replace);
  const FilePlaces places_;
};

}  // namespace karvel
