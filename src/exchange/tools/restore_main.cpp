// karvel-restore BACKUP [FOLDER] [--replace]: puts a backup of the shop back as a data folder, of this user's desk unless another is named.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/restore.h"
#include "exchange/zip/zip_archives.h"
#include "store/sqlite/folder_check.h"

namespace {

namespace fs = std::filesystem;
using karvel::ErrorKind;

constexpr std::string_view kUsage =
    "karvel-restore YEDEK.ZIP [KLASÖR] [--replace]\n"
    "  Yedeği denetler ve veri klasörü olarak geri koyar. KLASÖR verilmezse bu kullanıcının veri klasörü.\n"
    "  --replace  dolu klasörün yerine koyar; eski klasör yanında saklanır.\n";

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string Home() {
  if (const std::string home = Environment("KARVEL_HOME"); !home.empty()) return home;
  const std::string data = Environment("XDG_DATA_HOME");
  return (data.starts_with('/') ? data : Environment("HOME") + "/.local/share") + "/velmora-karvel";
}

// A desk that is open would go on writing into the folder that is put aside.
bool IsDeskOpen(const std::string& home) {
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

karvel::DateTime Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 20> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
  return karvel::DateTime::FromIso(text.data());
}

std::string Reason(const karvel::Status& status) {
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

int Restore(const std::string& archive, const std::string& folder, bool replace) {
  // The named folder may be another home's C\KarvelData.
  if (IsDeskOpen(Home()) || IsDeskOpen(fs::path(folder).parent_path().parent_path().string())) {
    fmt::print(stderr, "Program açık. Önce bütün terminalleri kapatın.\n");
    return 1;
  }
  karvel::ZipArchives archives;
  const karvel::Restored outcome =
      karvel::Restore(archives, {archive, folder, replace, Now()}, {karvel::CheckStores, karvel::RecoverStores});
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
  if (fs::exists(folder + "/Ayarlar")) fmt::print("Ayarlar ve Firmam.txt: {}/Ayarlar (şifreler yedekte yoktur)\n", folder);
  return 0;
}

}  // namespace

int main(int count, char** words) {
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
  return Restore(Absolute(places[0]), Absolute(places.size() > 1 ? places[1] : Home() + "/C/KarvelData"), replace);
}
