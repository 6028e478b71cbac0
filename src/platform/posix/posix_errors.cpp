#include "platform/posix/posix_errors.h"

#include <cerrno>

namespace lumidex {
namespace {

ErrorNumber NumberOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
      return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
      return ErrorNumber::PathFileAccess;
    case EROFS:
      return ErrorNumber::PermissionDenied;
    case EEXIST:
      return ErrorNumber::FileExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorNumber::DiskFull;
    case EIO:
      return ErrorNumber::DeviceIo;
    case ENODEV:
    case ENXIO:
    case ENOTCONN:
    case ESTALE:
    case EHOSTDOWN:
      return ErrorNumber::DeviceUnavailable;
    case ENOMEM:
    case EMFILE:
    case ENFILE:
      return ErrorNumber::OutOfMemory;
    default:
      return ErrorNumber::PathFileAccess;
  }
}

}  // namespace

void RaiseSystemError(int error, const std::string& path) {
  throw RunTimeError(NumberOf(error)).About(path);
}

}  // namespace lumidex
