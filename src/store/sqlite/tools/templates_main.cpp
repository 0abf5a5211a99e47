// karvel-templates FOLDER: writes the nine empty database files that lie beside the program.
#include <fmt/format.h>

#include <cstdio>
#include <filesystem>

#include "store/catalogue.h"
#include "store/sqlite/templates.h"

int main(int count, char** arguments) {
  if (count != 2) {
    fmt::print(stderr, "usage: karvel-templates FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder(arguments[1]);
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  for (const karvel::DatabaseFile& file : karvel::Catalogue::Files()) {
    const karvel::Status written = karvel::WriteTemplate(file, (folder / file.name).string());
    if (!written.Ok()) {
      fmt::print(stderr, "{}\n", written.Message());
      return 1;
    }
  }
  return 0;
}
