// karvel-import: a database file of the shop's older program into a data folder that has none of that name.
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
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

// Never over a file that is there, even if it came at this very moment.
Status PutInPlace(const std::string& made, const std::string& target) {
  if (const int error = MoveToFreeName(made, target); error != 0) return StatusOfSystemError(error, target);
  return StatusOfSystemError(SyncFolder(FolderOf(target)), target);
}

bool IsNewStore(const std::string& path) {
  constexpr std::string_view kBeginning = "SQLite format 3";
  std::array<char, kBeginning.size()> bytes{};
  std::ifstream(path, std::ios::binary).read(bytes.data(), bytes.size());
  return std::string_view(bytes.data(), bytes.size()) == kBeginning;
}

// Why a file is none that can be turned; "" where it is one.
std::string WhyNot(const std::string& old) {
  std::error_code failed;
  const fs::file_status found = fs::status(old, failed);
  if (!fs::exists(found)) return "bulunamadı. Adını ve yerini denetleyin.";
  if (fs::is_directory(found)) return "bir klasör. Klasörün içindeki veri dosyasını yazın (Cari.mdb, Stok.mdb …).";
  if (!fs::is_regular_file(found)) return "bir dosya değil.";
  if (access(old.c_str(), R_OK) != 0) return "okunamıyor: okuma izni yok.";
  if (Catalogue::File(old) == nullptr)
    return "adı eski programın veri dosyalarından birinin adı değil. Adı Cari.mdb, Stok.mdb, Karvel.mdb … olmalı.";
  switch (AccessFormOf(old)) {
    case AccessForm::Access2000:
      return "";
    case AccessForm::Access97:
      return "Access 97 biçiminde, okunamaz. Access ile açıp Access 2000 biçiminde kaydedin.";
    case AccessForm::Later:
      return "Access 2007 veya daha yeni biçimde, okunamaz. Access ile açıp Access 2000 biçiminde (.mdb) kaydedin.";
    case AccessForm::None:
      break;
  }
  return IsNewStore(old) ? "zaten bu programın veri dosyası, çevrilmesi gerekmez." : "bir Access dosyası değil, ya da başı bozuk.";
}

Answer Import(ShopFolder& shop, const std::string& old, const std::string& folder) {
  if (const std::string why = WhyNot(old); !why.empty()) {
    fmt::print(stderr, "{}: {}\n", old, why);
    return kFailed;
  }
  const DatabaseFile* const file = Catalogue::File(old);
  const std::string path = shop.PathOf(folder);
  if (const Status made = shop.MakeFolder(folder); !made.Ok()) return Fail("Veri klasörü açılamadı. ", made);
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
  if (done.Kind() == ErrorKind::Damaged) {
    fmt::print(stderr, "{}: dosya bozuk, hiçbir şey alınmadı. Access ile açıp onarın veya daha eski bir kopyasını deneyin.\n({})\n", old,
               done.Message());
    return kFailed;
  }
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
