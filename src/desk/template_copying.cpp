#include "desk/template_copying.h"

#include "store/catalogue.h"
#include "touch/file_operations.h"

namespace karvel {
namespace {
constexpr int kTemplates = 8;  // the catalogue's first eight files lie in the data folder
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
