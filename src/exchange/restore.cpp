#include "exchange/restore.h"

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

Status PutInPlace(const std::string& unpacked, const RestoreOrder& order, const RestoreChecks& checks, std::string& keptAs) {
  std::error_code error;
  const std::string above = FolderOf(order.folder);
  if (HoldsAnything(order.folder)) {
    // Journals name each other by their paths. A folder that can't be put right is kept as it is: it may be why a backup is wanted.
    if (const Status recovered = checks.recover(order.folder); !recovered.Ok()) Log("restore: " + recovered.Message());
    const std::string aside = NameAside(order.folder, order.now);
    fs::rename(order.folder, aside, error);
    if (error) return StatusOf(error, order.folder);
    keptAs = aside;
  } else {
    fs::remove(order.folder, error);
  }
  fs::rename(unpacked, order.folder, error);
  if (!error) return StatusOfSystemError(SyncFolder(above), above);
  const Status failed = StatusOf(error, order.folder);
  if (!keptAs.empty()) {
    fs::rename(keptAs, order.folder, error);
    if (!error) keptAs.clear();
  }
  return failed;
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
