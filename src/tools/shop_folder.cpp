#include "tools/shop_folder.h"

#include <filesystem>

#include "desk/template_copying.h"
#include "store/sqlite/new_store_file.h"
#include "store/sqlite/sqlite_engine.h"

namespace karvel {
namespace {

SqliteOptions EngineOptions(const DiskFiles& files, OldFiles& oldFiles) {
  SqliteOptions options;
  options.preparation = &oldFiles;
  options.programFolder = files.ProgramFolder();
  return options;
}

}  // namespace

std::string FolderOfProgram(const std::string& program) {
  std::error_code failed;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", failed);
  return (failed ? std::filesystem::absolute(program, failed) : self).parent_path().string();
}

ShopFolder::ShopFolder(const std::string& program, const std::string& name)
    : files_(FilePlaces::OfThisMachine(FolderOfProgram(program))),
      log_(files_.HomeFolder(), name),
      oldFiles_(oldDatabases_, MakeSqliteStoreFile),
      stores_(MakeSqliteEngine(EngineOptions(files_, oldFiles_))) {}

std::string ShopFolder::PathOf(const std::string& folder) const {
  std::error_code failed;
  return folder.empty() ? "C:\\KarvelData\\" : std::filesystem::absolute(folder, failed).string() + "/";
}

Status ShopFolder::MakeFolder(const std::string& folder) {
  const std::string path = PathOf(folder);
  const std::string left = LeftBesideMissing(files_, path);
  if (left.empty()) return files_.MakeFolder(path);
  return Status(ErrorKind::Missing, "no data folder, but " + left).At(files_.RealPath(path) + " (yanında duranlar: " + left + ")");
}

Status ShopFolder::Open(const std::string& folder) {
  const std::string path = PathOf(folder);
  if (Status made = MakeFolder(folder); !made.Ok()) return made;
  if (const std::string missing = MissingBesideRows(files_, path); !missing.empty())
    return Status(ErrorKind::Missing, missing + ": missing beside files with rows").At(files_.RealPath(path));
  if (Status copied = CopyMissingTemplates(files_, path); !copied.Ok()) return copied;
  return stores_.Open(files_.RealPath(path));
}

}  // namespace karvel
