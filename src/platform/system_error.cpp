#include "platform/system_error.h"

#include <cerrno>
#include <system_error>

namespace karvel {

ErrorKind KindOfSystemError(int error, ErrorKind otherwise) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorKind::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorKind::NoRights;
    case ENOENT:
    case ENOTDIR:
      return ErrorKind::Missing;
    case EBUSY:
    case ETXTBSY:
      return ErrorKind::Busy;
    case EIO:
    case ENXIO:
    case ENODEV:
    case EREMOTEIO:
    case EBADMSG:
    case ESTALE:
    case ETIMEDOUT:
    case EHOSTDOWN:
      return ErrorKind::DiskFailed;
    case ELOOP:
    case EISDIR:
      return ErrorKind::Damaged;
    case EMFILE:
    case ENFILE:
      // Whatever failed for want of a handle, a clerk who went to mend the rights of a folder would look in vain.
      return ErrorKind::Other;
    default:
      return otherwise;
  }
}

Status StatusOfSystemError(int error, const std::string& path) {
  if (error == 0) return {};
  return Status(KindOfSystemError(error), path + ": " + std::generic_category().message(error)).At(path);
}

}  // namespace karvel
