#include "exchange/restore.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/folders.h"
#include "platform/log.h"
#include "platform/system_error.h"
#include "text/format.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

Status StatusOf(const std::error_code& error, const std::string& path) {
  return StatusOfSystemError(error.value(), path);
}

// A folder for the user alone, with nothing in it. What an earlier try left goes.
Status MakeEmpty(const std::string& folder) {
  std::error_code error;
  fs::remove_all(folder, error);
  if (!error) fs::create_directories(folder, error);
  if (!error) fs::permissions(folder, fs::perms::owner_all, error);
  return StatusOf(error, folder);
}

bool HoldsAnything(const std::string& folder) {
  std::error_code error;
  return fs::exists(folder, error) && !fs::is_empty(folder, error);
}

// A name beside the folder that is not in use.
std::string NameAside(const std::string& folder, const DateTime& now) {
  const std::string first = folder + ".eski-" + Format(now, "yyyymmdd") + "-" + Format(now, "hhnnss");
  std::string name = first;
  for (int number = 2; fs::exists(name); ++number) name = first + "-" + std::to_string(number);
  return name;
}

Status Rename(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::rename(from, to, error);
  return StatusOf(error, from);
}

// For a disk that can't exchange names: for a moment there is no data folder.
Status ReplaceInTwoSteps(const std::string& unpacked, const std::string& folder, const std::string& aside) {
  if (Status moved = Rename(folder, aside); !moved.Ok()) return moved;
  Status placed = Rename(unpacked, folder);
  if (!placed.Ok()) Rename(aside, folder).Ignore();
  return placed;
}

// At every moment the old folder or the new one stands under the name, for a desk that finds none begins an empty shop. The new one waits
// under the name that the old one gets: what is left under the first name is swept by the next restore.
Status Replace(const std::string& unpacked, const std::string& folder, const std::string& aside) {
  if (Status waits = Rename(unpacked, aside); !waits.Ok()) return waits;
  const int exchanged = ExchangeNames(aside, folder);
  if (exchanged == 0) return {};
  if (Status back = Rename(aside, unpacked); !back.Ok()) return back;
  if (exchanged == EINVAL || exchanged == ENOSYS) return ReplaceInTwoSteps(unpacked, folder, aside);
  return StatusOfSystemError(exchanged, folder);
}

Status PutInPlace(const std::string& unpacked, const RestoreOrder& order, const RestoreChecks& checks, std::string& keptAs) {
  if (HoldsAnything(order.folder)) {
    // Journals name each other by their paths. A folder that can't be put right is kept as it is: it may be why a backup is wanted.
    if (const Status recovered = checks.recover(order.folder); !recovered.Ok()) Log("restore: " + recovered.Message());
    const std::string aside = NameAside(order.folder, order.now);
    if (Status replaced = Replace(unpacked, order.folder, aside); !replaced.Ok()) return replaced;
    keptAs = aside;
  } else if (Status placed = Rename(unpacked, order.folder); !placed.Ok()) {
    return placed;
  }
  const std::string above = FolderOf(order.folder);
  return StatusOfSystemError(SyncFolder(above), above);
}

}  // namespace

Restored Restore(Archives& archives, const RestoreOrder& order, const RestoreChecks& checks) {
  Restored outcome;
  if (HoldsAnything(order.folder) && !order.replace) {
    outcome.refused = true;
    return outcome;
  }
  const std::string unpacked = order.folder + ".yeni";
  outcome.status = MakeEmpty(unpacked);
  if (outcome.status.Ok()) outcome.status = archives.Unpack(order.archive, unpacked, outcome.names);
  if (outcome.status.Ok()) outcome.status = checks.check(unpacked);
  if (outcome.status.Ok()) outcome.status = PutInPlace(unpacked, order, checks, outcome.keptAs);
  std::error_code ignored;
  if (!outcome.status.Ok()) fs::remove_all(unpacked, ignored);
  return outcome;
}

}  // namespace karvel
