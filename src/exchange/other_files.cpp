#include "exchange/other_files.h"

#include <algorithm>

#include "store/catalogue.h"
#include "text/turkish.h"

namespace karvel {
namespace {

std::string Stem(std::string_view name) {
  return std::string(name.substr(0, name.find('.')));
}

}  // namespace

bool IsOfTheStores(const std::string& name) {
  return std::ranges::any_of(Catalogue::Files(), [&](const DatabaseFile& file) { return EqualText(Stem(file.name), Stem(name)); });
}

OtherFiles CopyOtherFiles(Files& files, const std::string& from, const std::string& to) {
  OtherFiles outcome;
  const auto note = [&](const Status& status) {
    if (outcome.status.Ok()) outcome.status = status;
    return status.Ok();
  };
  for (const std::string& name : files.List(from)) {
    const std::string source = PathIn(from, name);
    const std::string target = PathIn(to, name);
    if (IsOfTheStores(name) || files.IsFolder(source)) continue;
    if (files.Exists(target)) {
      outcome.kept.push_back(name);
    } else if (note(files.MakeFolder(to)) && note(files.CopyNew(source, target))) {
      outcome.copied.push_back(name);
    }
  }
  return outcome;
}

}  // namespace karvel
