#include "store/sqlite/held_file.h"

#include <algorithm>
#include <new>
#include <utility>

namespace karvel::sqlite {

HeldFile::HeldFile(const sqlite3_vfs& below)
    : room_((static_cast<std::size_t>(below.szOsFile) + sizeof(std::max_align_t) - 1) / sizeof(std::max_align_t)),
      below_(reinterpret_cast<sqlite3_file*>(room_.data())) {}

HeldFile::~HeldFile() {
  Close();
}

int HeldFile::Open(sqlite3_vfs& below, const char* name, int flags, int* outFlags) {
  path_ = name != nullptr ? name : "";
  flags_ = flags;
  return below.xOpen(&below, name, below_, flags, outFlags);
}

int HeldFile::Close() {
  const sqlite3_io_methods* methods = std::exchange(below_->pMethods, nullptr);
  return methods != nullptr ? methods->xClose(below_) : SQLITE_OK;
}

int HeldFile::Empty() {
  sqlite3_int64 size = 0;
  const int asked = below_->pMethods->xFileSize(below_, &size);
  return asked != SQLITE_OK || size == 0 ? asked : below_->pMethods->xTruncate(below_, 0);
}

bool HeldFile::IsHot() {
  char first = 0;
  const int read = below_->pMethods->xRead(below_, &first, 1, 0);
  return read != SQLITE_IOERR_SHORT_READ && (read != SQLITE_OK || first != 0);
}

int HeldFile::Hold(const void* bytes, int count, sqlite3_int64 at) {
  const char* begin = static_cast<const char*>(bytes);
  try {
    held_.push_back({at, {begin, begin + count}});
  } catch (const std::bad_alloc&) {
    return SQLITE_IOERR_NOMEM;
  }
  return SQLITE_OK;
}

int HeldFile::HoldSize(sqlite3_int64 size) {
  return Hold("", 0, size);
}

int HeldFile::Read(void* to, int count, sqlite3_int64 at) {
  const int read = below_->pMethods->xRead(below_, to, count, at);
  for (const HeldChange& change : held_) {
    const sqlite3_int64 begin = std::max(at, change.at);
    const sqlite3_int64 end = std::min(at + count, change.at + static_cast<sqlite3_int64>(change.bytes.size()));
    if (begin < end) std::copy_n(change.bytes.data() + (begin - change.at), end - begin, static_cast<char*>(to) + (begin - at));
  }
  return read;
}

int HeldFile::Size(sqlite3_int64* size) {
  const int asked = below_->pMethods->xFileSize(below_, size);
  for (const HeldChange& change : held_) {
    *size = change.bytes.empty() ? change.at : std::max(*size, change.at + static_cast<sqlite3_int64>(change.bytes.size()));
  }
  return asked;
}

int HeldFile::Release() {
  for (const HeldChange& change : held_) {
    const int done = change.bytes.empty()
                         ? below_->pMethods->xTruncate(below_, change.at)
                         : below_->pMethods->xWrite(below_, change.bytes.data(), static_cast<int>(change.bytes.size()), change.at);
    if (done != SQLITE_OK) return done;
  }
  held_.clear();
  return SQLITE_OK;
}

void HeldFile::Drop() {
  if (Holds() && IsStore()) notes_.NoteTakenBack();
  held_.clear();
}

int HeldFile::Sync(int flags) {
  return below_->pMethods->xSync(below_, flags);
}

void HeldFile::LockedForWriting() {
  if (!IsStore() || mayWrite_) return;
  mayWrite_ = true;
  notes_.Open(path_);
}

void HeldFile::NoLongerWritten() {
  if (!mayWrite_) return;
  mayWrite_ = false;
  notes_.Close();
}

}  // namespace karvel::sqlite
