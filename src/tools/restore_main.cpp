// karvel-restore BACKUP [FOLDER] [--replace]: puts a backup of the shop back as a data folder, of this user's desk unless another is named,
// and what it holds of settings and company lines to where the desk reads them.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/disk_files.h"
#include "app/system_clock.h"
#include "desk/template_copying.h"
#include "exchange/restore.h"
#include "exchange/zip/zip_archives.h"
#include "store/sqlite/folder_check.h"
#include "tools/restored_settings.h"
#include "tools/shop_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUsage =
    "karvel-restore YEDEK.ZIP [KLASÖR] [--replace]\n"
    "  Yedeği denetler ve veri klasörü olarak geri koyar. KLASÖR verilmezse bu kullanıcının veri klasörü.\n"
    "  Ayarları ve Firmam.txt dosyasını da programın okuduğu yere koyar; oradakilerin üzerine yazmaz.\n"
    "  --replace  dolu klasörün ve oradaki ayarların yerine koyar; eskileri yanında saklanır.\n";

// A desk that is open would go on writing into the folder that is put aside.
bool IsDeskOpen(const std::string& home) {
  if (home.empty()) return false;
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(home + "/lock", none)) {
    if (entry.path().extension() != ".lock" || entry.path().filename() == "settings.lock") continue;
    const int file = open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (file < 0) continue;
    const bool held = flock(file, LOCK_EX | LOCK_NB) != 0;
    close(file);
    if (held) return true;
  }
  return false;
}

std::string Reason(const Status& status) {
  switch (status.Kind()) {
    case ErrorKind::Damaged:
      return "Yedek bozuk veya eksik.";
    case ErrorKind::Missing:
      return "Dosya veya klasör bulunamadı, ya da yedekte bir veri dosyası eksik.";
    case ErrorKind::DiskFull:
      return "Diskte yer yok.";
    case ErrorKind::NoRights:
      return "Okuma veya yazma izni yok.";
    case ErrorKind::DiskFailed:
      return "Disk okunamadı veya yazılamadı.";
    case ErrorKind::Busy:
      return "Dosyaları başka bir program kullanıyor.";
    default:
      return "Beklenmeyen bir hata oldu.";
  }
}

std::string Absolute(const std::string& path) {
  std::string whole = fs::absolute(path).lexically_normal().string();
  while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
  return whole;
}

// The home of a data folder, "" for a folder that lies as none of a desk does.
std::string HomeOf(const std::string& folder) {
  const fs::path path(folder);
  return path.filename() == "KarvelData" && path.parent_path().filename() == "C" ? path.parent_path().parent_path().string() : "";
}

bool TellSettings(const SettingsPutBack& outcome) {
  for (const std::string& place : outcome.put) fmt::print("Yerine kondu: {}\n", place);
  for (const std::string& place : outcome.keptAs) fmt::print("Eskisi: {}\n", place);
  if (!outcome.put.empty()) fmt::print("Şifreler yedekte yoktur; yeni bir bilgisayarda programa yeniden girin.\n");
  for (std::size_t i = 0; i < outcome.left.size(); ++i)
    fmt::print(stderr, "Yerine konmadı, yedekteki burada duruyor: {}\n  Kullanmak için şunun yerine koyun: {}\n", outcome.left[i],
               outcome.wanted[i]);
  if (outcome.status.Ok()) return true;
  fmt::print(stderr, "{}\n({})\n", Reason(outcome.status), outcome.status.Message());
  return false;
}

// Where a folder is named that no desk opens as its own, the settings stay beside the data.
bool PutBackSettings(DiskFiles& files, const std::string& folder, bool replace) {
  const std::string brought = folder + "/Ayarlar", home = HomeOf(folder);
  if (!fs::exists(brought)) return true;
  if (home.empty()) {
    fmt::print("Ayarlar ve Firmam.txt: {}\n", brought);
    return true;
  }
  return TellSettings(PutSettingsBack(
      files, brought,
      {.home = home, .replace = replace, .replaceBesideProgram = replace && home == files.HomeFolder(), .now = SystemClock().Now()}));
}

int PutBack(DiskFiles& files, const std::string& archive, const std::string& folder, bool replace) {
  if (IsDeskOpen(files.HomeFolder()) || IsDeskOpen(HomeOf(folder))) {
    fmt::print(stderr, "Program açık. Önce bütün terminalleri kapatın.\n");
    return 1;
  }
  if (const std::string left = LeftBesideMissing(files, folder); !left.empty())
    fmt::print("Veri klasörü yok; yanında şunlar duruyor: {}\n", left);
  ZipArchives archives;
  const Restored outcome = Restore(archives, {archive, folder, replace, SystemClock().Now()}, {CheckStores, RecoverStores});
  if (outcome.refused) {
    fmt::print(stderr, "{} boş değil, üzerine yazılmadı. Yerine koymak için --replace yazın; eski klasör yanında saklanır.\n", folder);
    return 1;
  }
  if (!outcome.status.Ok()) {
    fmt::print(stderr, "Yedek geri konmadı. {} Veri klasörü olduğu gibi duruyor.\n({})\n", Reason(outcome.status),
               outcome.status.Message());
    return 1;
  }
  fmt::print("Yedek geri kondu: {} ({} dosya)\n", folder, outcome.names.size());
  if (!outcome.keptAs.empty()) fmt::print("Eski klasör: {}\n", outcome.keptAs);
  return PutBackSettings(files, folder, replace) ? 0 : 1;
}

int Run(int count, char** words) {
  std::vector<std::string> places;
  bool replace = false;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--replace") {
      replace = true;
    } else if (word.starts_with("--")) {
      places.clear();
      break;
    } else {
      places.push_back(word);
    }
  }
  if (places.empty() || places.size() > 2) {
    fmt::print(stderr, "{}", kUsage);
    return 2;
  }
  DiskFiles files(FilePlaces::OfThisMachine(FolderOfProgram(words[0])));
  return PutBack(files, Absolute(places[0]), Absolute(places.size() > 1 ? places[1] : files.HomeFolder() + "/C/KarvelData"), replace);
}

}  // namespace
}  // namespace karvel

int main(int count, char** words) {
  return karvel::Run(count, words);
}
