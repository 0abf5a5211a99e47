#include "desk/template_copying.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/folders.h"
#include "store/catalogue.h"
#include "touch/file_operations.h"

namespace karvel {
namespace {
constexpr int kTemplates = 8;  // the catalogue's first eight files lie in the data folder
constexpr std::array<std::string_view, 3> kMain{"Cari.mdb", "Stok.mdb", "Karvel.mdb"};
// The counter of line ids: it is empty until the first line is posted, and small.
constexpr std::string_view kCounter = "Index.mdb";

bool HoldsRows(const Files& files, const std::string& file, const std::string& emptyFile) {
  std::string bytes, empty;
  // One that can't be read is no sign of a new shop.
  return !files.Read(file, bytes).Ok() || !files.Read(emptyFile, empty).Ok() || bytes != empty;
}

bool HoldsStore(const Files& files, const std::string& dataFolder) {
  return std::ranges::any_of(Catalogue::Files().first(kTemplates),
                             [&](const DatabaseFile& file) { return files.Exists(PathIn(dataFolder, file.name)); });
}

}  // namespace

std::string LeftBesideMissing(const Files& files, const std::string& dataFolder) {
  if (HoldsStore(files, dataFolder)) return {};
  std::string real = files.RealPath(dataFolder);
  while (real.size() > 1 && real.ends_with('/')) real.pop_back();
  const std::string above = FolderOf(real), name = real.substr(real.rfind('/') + 1);
  std::string left;
  for (const std::string& beside : files.List(above)) {
    if (beside != name + ".yeni" && !beside.starts_with(name + ".eski-")) continue;
    if (files.IsFolder(PathIn(above, beside))) left += (left.empty() ? "" : ", ") + beside;
  }
  return left;
}

std::string MissingBesideRows(const Files& files, const std::string& dataFolder) {
  const std::string counter = PathIn(dataFolder, kCounter);
  std::string missing;
  for (const std::string_view name : kMain)
    if (!files.Exists(PathIn(dataFolder, name))) missing += (missing.empty() ? "" : ", ") + std::string(name);
  const bool posted = !missing.empty() && files.Exists(counter) && HoldsRows(files, counter, PathIn(files.ProgramFolder(), kCounter));
  return posted ? missing : "";
}

Status CopyMissingTemplates(Files& files, const std::string& dataFolder) {
  CSHFileOp copy(files);
  for (const DatabaseFile& file : Catalogue::Files().first(kTemplates)) {
    const std::string target = PathIn(dataFolder, file.name);
    if (files.Exists(target)) continue;
    copy.ClearSourceFiles();
    copy.ClearDestFiles();
    copy.AddSourceFile(files.ProgramFolder() + "/" + std::string(file.name));
    copy.AddDestFile(target);
    if (const auto copied = copy.CopyFiles(); !copied) return copied.error().status;
  }
  return {};
}

}  // namespace karvel
