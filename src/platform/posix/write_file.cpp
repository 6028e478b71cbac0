#include "platform/posix/write_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

#include "platform/posix/posix_errors.h"

namespace lumidex {
namespace {

// A descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  // What closing says: some file systems tell only then that the disk is full.
  int Close() {
    const int result = close(number_);
    number_ = -1;
    return result;
  }

 private:
  int number_;
};

// 0, or the error.
int WriteAllBytes(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = write(descriptor, content.data(), content.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

// The file that a link leads to, so that the link is not replaced by a file.
std::string BehindLinks(const std::string& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) ? resolved : path;
}

void WriteInPlace(const std::string& path, std::string_view content) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666));
  if (!file.IsOpen()) RaiseSystemError(errno, path);
  int error = WriteAllBytes(file.Number(), content);
  if (file.Close() != 0 && error == 0) error = errno;
  if (error != 0) RaiseSystemError(error, path);
}

mode_t NewFileMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

void WriteFile(const std::string& path, std::string_view content) {
  const std::string target = BehindLinks(path);
  struct stat before {};
  const bool exists = stat(target.c_str(), &before) == 0;
  if (exists && S_ISDIR(before.st_mode)) RaiseSystemError(EACCES, path);
  if (exists && !S_ISREG(before.st_mode)) return WriteInPlace(target, content);
  // A read-only file is not to be replaced, though the directory would let it.
  if (exists && access(target.c_str(), W_OK) != 0) throw RunTimeError(ErrorNumber::PermissionDenied);

  std::string temporary = target + ".XXXXXX";
  Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.IsOpen()) {
    if (exists && (errno == EACCES || errno == EPERM || errno == ENAMETOOLONG)) {
      return WriteInPlace(target, content);
    }
    RaiseSystemError(errno, path);
  }
  int error = WriteAllBytes(file.Number(), content);
  if (error == 0 && fchmod(file.Number(), exists ? before.st_mode & 07777 : NewFileMode()) != 0)
    error = errno;
  if (error == 0 && fsync(file.Number()) != 0 && errno != EINVAL) error = errno;
  if (file.Close() != 0 && error == 0) error = errno;
  if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
  if (error == 0) return;
  unlink(temporary.c_str());
  RaiseSystemError(error, path);
}

}  // namespace lumidex
