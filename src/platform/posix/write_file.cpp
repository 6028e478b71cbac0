#include "platform/posix/write_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

#include "platform/posix/posix_errors.h"
#include "ports/file_system.h"

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
int WriteBytes(const Descriptor& file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file.Number(), bytes.data(), bytes.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return 0;
}

class FileSink final : public ByteSink {
 public:
  FileSink(const Descriptor& file, const std::string& path) : file_(file), path_(path) {}
  void Write(std::span<const std::uint8_t> bytes) override {
    if (const int error = WriteBytes(file_, bytes)) RaiseSystemError(error, path_);
  }

 private:
  const Descriptor& file_;
  const std::string& path_;
};

// Whoever has it open knows its name.
class EndOfFile final : public ByteSink {
 public:
  explicit EndOfFile(int file) : file_(file) {}
  void Write(std::span<const std::uint8_t> bytes) override {
    if (const int error = WriteBytes(file_, bytes)) RaiseSystemError(error, {});
  }

 private:
  const Descriptor file_;
};

// The file that a link leads to, so that the link is not replaced by a file.
std::string BehindLinks(const std::string& path) {
  char resolved[PATH_MAX];
  return realpath(path.c_str(), resolved) ? resolved : path;
}

using Produce = std::function<void(ByteSink&)>;

Descriptor OpenInPlace(const std::string& path) {
  return Descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666));
}

void WriteThrough(Descriptor& file, const std::string& path, const Produce& produce) {
  FileSink sink(file, path);
  try {
    produce(sink);
    if (fsync(file.Number()) != 0 && errno != EINVAL) RaiseSystemError(errno, path);
  } catch (...) {
    // A part is of no use to anybody. A device has no length, which is no second error.
    static_cast<void>(ftruncate(file.Number(), 0) == 0);
    throw;
  }
  if (file.Close() != 0) RaiseSystemError(errno, path);
}

void WriteInPlace(const std::string& path, const Produce& produce) {
  Descriptor file = OpenInPlace(path);
  if (!file.IsOpen()) RaiseSystemError(errno, path);
  WriteThrough(file, path, produce);
}

// A name is safe on the disk only when its folder is. A file system that can't do that has told all it can.
void SyncFolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.IsOpen()) static_cast<void>(fsync(descriptor.Number()));
}

mode_t NewFileMode() {
  // Read once: it can only be read by changing it, which other threads that make files would notice.
  static const mode_t mask = [] {
    const mode_t present = umask(0);
    umask(present);
    return present;
  }();
  return 0666 & ~mask;
}

// A file that is removed again unless it is given its name.
class TemporaryFile {
 public:
  // Beside `target`. Not open when none can be made; errno says why.
  explicit TemporaryFile(const std::string& target)
      : path_(target + ".XXXXXX"), file_(mkostemp(path_.data(), O_CLOEXEC)) {}
  ~TemporaryFile() {
    if (made_ && !named_) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const Descriptor& File() const { return file_; }
  // Makes sure that the content is on the disk, and gives the file its mode and its name. 0, or the error.
  int Finish(const std::string& target, mode_t mode) {
    if (fchmod(file_.Number(), mode) != 0) return errno;
    if (fsync(file_.Number()) != 0 && errno != EINVAL) return errno;
    if (file_.Close() != 0) return errno;
    if (rename(path_.c_str(), target.c_str()) != 0) return errno;
    named_ = true;
    SyncFolderOf(target);
    return 0;
  }

 private:
  std::string path_;
  Descriptor file_;
  const bool made_ = file_.IsOpen();
  bool named_ = false;
};

// False when there is no such file yet. Raises for one that can not be written: a read-only file is not to be
// replaced, though the directory would let it.
bool LookAtTarget(const std::string& target, struct stat& facts) {
  if (stat(target.c_str(), &facts) != 0) return false;
  if (S_ISDIR(facts.st_mode)) RaiseSystemError(EACCES, target);
  if (access(target.c_str(), W_OK) != 0) throw RunTimeError(ErrorNumber::PermissionDenied).About(target);
  return true;
}

}  // namespace

void OverwriteFile(const std::string& path, std::string_view content,
                   const std::function<std::string(const std::string&)>& aside) {
  const Produce produce = [content](ByteSink& sink) { sink.WriteText(content); };
  const std::string target = BehindLinks(path);
  struct stat before {};
  const bool exists = LookAtTarget(target, before);
  if (!exists || !S_ISREG(before.st_mode) || before.st_size == 0) return WriteInPlace(target, produce);

  const std::string kept = aside(target);
  if (rename(target.c_str(), kept.c_str()) != 0) RaiseSystemError(errno, path);
  SyncFolderOf(target);
  Descriptor file = OpenInPlace(target);
  const int openError = errno;
  // What was not opened is not gone either.
  if (!file.IsOpen() && rename(kept.c_str(), target.c_str()) == 0) RaiseSystemError(openError, path);
  try {
    if (!file.IsOpen()) RaiseSystemError(openError, path);
    // A file system without modes is no reason to give up.
    static_cast<void>(fchmod(file.Number(), before.st_mode & 07777) == 0);
    WriteThrough(file, path, produce);
  } catch (const RunTimeError& error) {
    throw OldContentKept(error, kept);
  }
  SyncFolderOf(target);
  unlink(kept.c_str());
}

std::unique_ptr<ByteSink> OpenFileAtEnd(const std::string& path, bool emptied) {
  const int emptying = emptied ? O_TRUNC : 0;
  const int file =
      open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | emptying | O_CLOEXEC | O_NONBLOCK, 0666);
  if (file < 0) RaiseSystemError(errno, path);
  return std::make_unique<EndOfFile>(file);
}

void WriteFile(const std::string& path, const Produce& produce) {
  const std::string target = BehindLinks(path);
  struct stat before {};
  const bool exists = LookAtTarget(target, before);
  if (exists && !S_ISREG(before.st_mode)) return WriteInPlace(target, produce);

  TemporaryFile file(target);
  if (!file.File().IsOpen()) {
    if (exists && (errno == EACCES || errno == EPERM || errno == ENAMETOOLONG)) {
      return WriteInPlace(target, produce);
    }
    RaiseSystemError(errno, path);
  }
  FileSink sink(file.File(), path);
  produce(sink);
  const int error = file.Finish(target, exists ? before.st_mode & 07777 : NewFileMode());
  if (error != 0) RaiseSystemError(error, path);
}

}  // namespace lumidex
