#include "exchange/backup_archive.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "books/steps.h"
#include "platform/archive.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/ftp.h"
#include "platform/phase_times.h"
#include "platform/settings_store.h"
#include "platform/system_error.h"
#include "settings/program_file.h"
#include "settings/settings_table.h"
#include "store/catalogue.h"
#include "store/stores.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("Backup");

// How far it is, in hundredths, when the stores are copied.
constexpr int kCopied = 30;
// Stores deflate to a quarter or less; where one doesn't, the archive fails and says why.
constexpr std::uint64_t kDeflatesTo = 3;
constexpr std::uint64_t kBeside = 4 * 1024 * 1024;  // for all that is no store
constexpr std::string_view kSettingsFolder = "Ayarlar/";

// A folder of this machine for what is packed, empty at first, and gone with this.
class Workplace {
 public:
  Workplace(Files& files, const std::string& terminal) : files_(files), folder_(FolderFor(files, terminal)) {
    Empty();
    made_ = files_.MakeFolder(folder_);
  }
  ~Workplace() { Empty(); }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  static std::string FolderFor(const Files& files, const std::string& terminal) { return files.HomeFolder() + "/yedeklenen" + terminal; }
  [[nodiscard]] const Status& Made() const { return made_; }
  [[nodiscard]] const std::string& Folder() const { return folder_; }
  [[nodiscard]] std::string At(const std::string& name) const { return folder_ + "/" + name; }

 private:
  // With the files that a desk which died in the middle of writing them has left hidden.
  void Empty() {
    const std::string folder = files_.RealPath(folder_);
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator(folder, failed)) EmptyByPieces(entry.path().string());
    std::filesystem::remove_all(folder, failed);
    step("empty the workplace", StatusOfSystemError(failed.value(), folder_));
  }

  Files& files_;
  const std::string folder_;
  Status made_;
};

bool IsStore(const std::string& name) {
  return std::ranges::any_of(Catalogue::Files(), [&](const DatabaseFile& file) { return EqualText(file.name, name); });
}

// What the stores need while they are written, and what nobody needs in a backup.
bool BelongsToStores(const std::string& name) {
  return EqualText(name, "karvel.lock") || name.ends_with("-journal") || name.ends_with("-changes") || name.ends_with("-wal") ||
         name.ends_with("-shm") || name.find(".mdb-mj") != std::string::npos;
}

bool IsUnder(const std::string& place, const std::string& folder) {
  return !folder.empty() && place.starts_with(folder + "/");
}

// Rounded against the backup, so that what is wanted never looks as if it were there.
std::string ShortOf(const std::string& drive, std::uint64_t wanted, std::uint64_t room) {
  constexpr std::uint64_t kMegabyte = 1'000'000;
  return fmt::format("{} ({} MB gerekli, {} MB boş)", drive, wanted / kMegabyte + 1, room / kMegabyte);
}

class BackupInWork {
 public:
  BackupInWork(const World& world, const BackupOrder& order, const std::function<void(int)>& progress)
      : world_(world), order_(order), progress_(progress), place_(world.files, order.terminal) {}

  Status Make() {
    PhaseTimes times;
    Status done = place_.Made();
    if (done.Ok()) done = FindDrive();
    if (done.Ok()) done = CopyStores();
    if (done.Ok()) done = CopyOtherFiles();
    if (done.Ok()) done = WriteSettings();
    times.Note("copied");
    if (done.Ok()) done = Pack();
    times.Note("packed");
    times.Tell("backup");
    return done.Ok() ? done : Status(done.Kind(), done.Message()).About(done.What()).At(PlaceForClerk(done.Place()));
  }

 private:
  // A file or folder of this machine as the clerk knows it: by its drive, and an archive in work by its name to come.
  [[nodiscard]] std::string PlaceForClerk(const std::string& place) const {
    if (!place.starts_with('/')) return place;
    if (IsUnder(place, world_.files.RealPath(place_.Folder()))) return "C:";
    for (const auto& [folder, called] :
         {std::pair(world_.files.RealPath(order_.dataFolder), order_.dataFolder), std::pair(driveFolder_, order_.drive + "\\")}) {
      if (!IsUnder(place, folder)) continue;
      const bool hidden = place.find("/.", folder.size()) != std::string::npos;
      return hidden ? BackupPath(order_) : PathIn(called, ReplaceAll(place.substr(folder.size() + 1), "/", "\\"));
    }
    return place.substr(place.rfind('/') + 1);
  }

  Status FindDrive() {
    driveFolder_ = FolderOfDrive();
    if (!driveFolder_.empty() && (world_.files.IsFolder(driveFolder_) || EqualText(order_.drive, "C:"))) return {};
    return NoDrive();
  }

  // "" for one that isn't there.
  [[nodiscard]] std::string FolderOfDrive() const {
    std::string folder = world_.files.RealPath(order_.drive + "\\");
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    return folder;
  }
  [[nodiscard]] Status NoDrive() const { return Status(ErrorKind::Missing, order_.drive + ": no such drive").At(order_.drive); }

  // Told before anything is written: a till's disk that runs full can't sell either.
  Status AskRoom(std::uint64_t stores) {
    const std::uint64_t archive = stores / kDeflatesTo + kBeside;
    const bool sameDisk = EqualText(order_.drive, "C:");
    if (Status status = AskRoomOn("C:", stores + kBeside + (sameDisk ? archive : 0)); !status.Ok()) return status;
    return AskRoomOn(order_.drive, archive);
  }

  Status AskRoomOn(const std::string& drive, std::uint64_t wanted) {
    const auto room = world_.files.Room(drive + "\\");
    if (!room || *room >= wanted) return {};
    const std::string short_of = ShortOf(drive, wanted, *room);
    return Status(ErrorKind::DiskFull, "no room for a backup on " + short_of).At(short_of);
  }

  Status CopyStores() {
    std::unique_ptr<StoresCopy> copy;
    if (Status begun = world_.stores.Copy(place_.Folder(), copy); !begun.Ok()) return begun;
    if (Status room = AskRoom(static_cast<std::uint64_t>(copy->Size())); !room.Ok()) return room;
    while (!copy->IsDone()) {
      progress_(static_cast<int>(kCopied * copy->Copied() / std::max<std::int64_t>(1, copy->Size())));
      if (Status advanced = copy->Advance(); !advanced.Ok()) return advanced;
    }
    for (const std::string& name : world_.files.List(place_.Folder())) items_.push_back({name, place_.At(name)});
    return {};
  }

  // Copied as well, for the desks replace them at any time.
  Status CopyOtherFiles() {
    for (const std::string& name : world_.files.List(order_.dataFolder)) {
      const std::string path = PathIn(order_.dataFolder, name);
      if (IsStore(name) || BelongsToStores(name) || world_.files.IsFolder(path)) continue;
      if (Status copied = Take(path, name); !copied.Ok()) return copied;
    }
    for (const char* const name : {"Firmam.txt", "SeriNo.txt"}) {
      if (Status copied = Take(ProgramFilePath(world_.files, name), std::string(kSettingsFolder) + name); !copied.Ok()) return copied;
    }
    return {};
  }

  // One that has gone since is none of the shop's any more.
  Status Take(const std::string& from, const std::string& name) {
    const std::string at = place_.At(fmt::format("{}.beside", items_.size()));
    Status copied = world_.files.Copy(from, at);
    if (copied.Kind() == ErrorKind::Missing) return {};
    if (copied.Ok()) items_.push_back({name, at});
    return copied;
  }

  Status WriteSettings() {
    const auto shown = [](std::string_view key, const std::string& value) -> std::optional<std::string> {
      if (IsSecret(key)) return std::nullopt;
      return key == EntryOf(Setting::FtpUrl).key ? WithoutPassword(value) : value;
    };
    const std::string at = place_.At("settings");
    Status written = world_.files.Write(at, world_.settings.Text(shown));
    if (written.Ok()) items_.push_back({std::string(kSettingsFolder) + "settings.ini", at});
    return written;
  }

  Status Pack() {
    // Where the disk was pulled out meanwhile, another one may bear its letter now.
    if (FolderOfDrive() != driveFolder_) return NoDrive();
    const std::string path = BackupPath(order_);
    const std::string folder = path.substr(0, path.rfind('\\'));
    if (Status made = world_.files.MakeFolder(folder); !made.Ok()) return made;
    return world_.archives.Pack(world_.files.RealPath(path), items_,
                                [&](int percent) { progress_(kCopied + percent * (100 - kCopied) / 100); });
  }

  const World& world_;
  const BackupOrder& order_;
  const std::function<void(int)>& progress_;
  const Workplace place_;
  std::string driveFolder_;  // of this machine
  std::vector<Archives::Item> items_;
};

}  // namespace

std::string BackupsOn(const std::string& drive) {
  return drive + "\\KarvelYedek";
}

std::string BackupPath(const BackupOrder& order) {
  return BackupsOn(order.drive) + "\\" + Format(order.now, "yyyymmdd") + "\\" + Format(order.now, "hhnn") + "Data.ZIP";
}

Status MakeBackup(const World& world, const BackupOrder& order, const std::function<void(int)>& progress) {
  return BackupInWork(world, order, progress).Make();
}

void SweepBackup(Files& files, const std::string& terminal) {
  if (files.IsFolder(Workplace::FolderFor(files, terminal))) const Workplace left(files, terminal);
}

}  // namespace karvel
