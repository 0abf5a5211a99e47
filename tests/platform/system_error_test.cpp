#include "platform/system_error.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace karvel {
namespace {

TEST(KindOfSystemError, tells_the_failures_that_a_clerk_can_mend) {
  for (const int error : {ENOSPC, EDQUOT, EFBIG}) EXPECT_EQ(KindOfSystemError(error), ErrorKind::DiskFull) << error;
  for (const int error : {EACCES, EPERM, EROFS}) EXPECT_EQ(KindOfSystemError(error), ErrorKind::NoRights) << error;
  for (const int error : {ELOOP, EISDIR}) EXPECT_EQ(KindOfSystemError(error), ErrorKind::Damaged) << error;
  for (const int error : {ENOENT, ENOTDIR}) EXPECT_EQ(KindOfSystemError(error), ErrorKind::Missing) << error;
  for (const int error : {EBUSY, ETXTBSY}) EXPECT_EQ(KindOfSystemError(error), ErrorKind::Busy) << error;
  EXPECT_EQ(KindOfSystemError(EIO), ErrorKind::DiskFailed);
}

TEST(KindOfSystemError, takes_the_callers_word_for_what_the_system_leaves_open) {
  for (const int error : {0, EINVAL}) EXPECT_EQ(KindOfSystemError(error, ErrorKind::NoRights), ErrorKind::NoRights) << error;
  EXPECT_EQ(KindOfSystemError(ENOSPC, ErrorKind::NoRights), ErrorKind::DiskFull);
}

TEST(KindOfSystemError, too_many_open_files_are_no_missing_rights) {
  for (const int error : {EMFILE, ENFILE}) EXPECT_EQ(KindOfSystemError(error, ErrorKind::NoRights), ErrorKind::Other) << error;
}

TEST(StatusOfSystemError, is_well_without_an_error_and_else_names_the_path) {
  EXPECT_TRUE(StatusOfSystemError(0, "/x").Ok());
  const Status failed = StatusOfSystemError(ENOSPC, "/x/Cari.mdb");
  EXPECT_EQ(failed.Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(failed.Message(), "/x/Cari.mdb: No space left on device");
}

}  // namespace
}  // namespace karvel
