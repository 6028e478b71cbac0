#include "platform/posix/file_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "base/run_time_error.h"
#include "pictures/picture_data.h"

namespace lumidex {
namespace {

class FileSource final : public ByteSource {
 public:
  explicit FileSource(const std::string& path) {
    // Without O_NONBLOCK opening a pipe would wait for a writer.
    descriptor_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor_ < 0) throw RunTimeError(OpenError(errno)).About(path);
    struct stat status {};
    if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
      close(descriptor_);
      throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
    }
    size_ = static_cast<std::uint64_t>(status.st_size);
  }
  ~FileSource() override { close(descriptor_); }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  std::uint64_t Size() const override { return size_; }

  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    std::size_t done = 0;
    while (done < into.size() &&
           offset + done <= static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) {
      const ssize_t count =
          pread(descriptor_, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) break;
      done += static_cast<std::size_t>(count);
    }
    return done;
  }

 private:
  static ErrorNumber OpenError(int error) {
    switch (error) {
      case ENOENT:
      case ENOTDIR:
        return ErrorNumber::FileNotFound;
      case EACCES:
      case EPERM:
        return ErrorNumber::PermissionDenied;
      default:
        return ErrorNumber::PathFileAccess;
    }
  }

  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace

std::shared_ptr<const ByteSource> OpenFileSource(const std::string& path) {
  return std::make_shared<FileSource>(path);
}

}  // namespace lumidex
