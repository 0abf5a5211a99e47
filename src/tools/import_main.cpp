// karvel-import: a database file of the shop's older program into a data folder that has none of that name.
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/clerk_message.h"
#include "platform/folders.h"
#include "platform/system_error.h"
#include "store/sqlite/new_store_file.h"
#include "tools/shop_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUsage =
    "Kullanım: karvel-import ESKİ.mdb [--folder KLASÖR]\n"
    "Eski programın veri dosyasını (Cari.mdb, Stok.mdb, …) çevirip veri klasörüne koyar. Oradaki bir dosyanın üzerine yazmaz.\n";
enum Answer { kWell = 0, kFailed = 1, kMisused = 2 };

Answer Fail(const std::string& what, const Status& status) {
  fmt::print(stderr, "{}\n", WithPlace(what + OpeningMessage(status), status));
  return kFailed;
}

// A name of its own first: what is there stays, even if it came at this very moment.
Status PutInPlace(const std::string& made, const std::string& target) {
  if (::link(made.c_str(), target.c_str()) != 0) return StatusOfSystemError(errno, target);
  std::error_code ignored;
  fs::remove(made, ignored);
  const int error = SyncFolder(FolderOf(target));
  return error == 0 ? Status() : StatusOfSystemError(error, target);
}

Answer Import(ShopFolder& shop, const std::string& old, const std::string& folder) {
  const DatabaseFile* const file = Catalogue::File(old);
  if (file == nullptr || !AccessDatabases().IsOld(old)) {
    fmt::print(stderr, "{}: eski programın bir veri dosyası değil (Cari.mdb, Stok.mdb, Karvel.mdb …).\n", old);
    return kFailed;
  }
  const std::string path = shop.PathOf(folder);
  if (const Status made = shop.Disk().MakeFolder(path); !made.Ok()) return Fail("Veri klasörü açılamadı. ", made);
  const std::string target = shop.Disk().RealPath(PathIn(path, file->name));
  if (fs::exists(target)) {
    fmt::print(stderr, "{} zaten var; üzerine yazılmadı. Programı kapatıp bu dosyayı kenara alın, sonra yeniden deneyin.\n", target);
    return kFailed;
  }
  AccessDatabases databases;
  ConvertedFile converted;
  const std::string made = target + ".yeni";
  Status done = ConvertOldFile(databases, MakeSqliteStoreFile, old, *file, made, converted);
  if (done.Ok()) done = PutInPlace(made, target);
  if (!done.Ok()) return Fail("Eski dosya çevrilemedi. ", done);
  fmt::print("{}: {} kayıt alındı.\n", target, converted.rows);
  for (const std::string& fault : converted.faults) fmt::print("{}\n", fault);
  return kWell;
}

Answer Run(int count, char** given) {
  const bool named = count == 4 && std::string_view(given[2]) == "--folder";
  if ((count != 2 && !named) || std::string_view(given[1]).starts_with("--")) {
    fmt::print(stderr, "{}", kUsage);
    return kMisused;
  }
  ShopFolder shop(given[0], "karvel-import");
  return Import(shop, given[1], named ? given[3] : "");
}

}  // namespace
}  // namespace karvel

int main(int count, char** given) {
  return karvel::Run(count, given);
}
