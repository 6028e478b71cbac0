#include "platform/posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "pictures/picture_data.h"
#include "platform/posix/file_source.h"
#include "platform/posix/mounts.h"
#include "platform/posix/posix_errors.h"
#include "platform/posix/write_file.h"

namespace lumidex {
namespace {

EntryKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::File;
  if (S_ISDIR(mode)) return EntryKind::Directory;
  return EntryKind::Other;
}

// A link counts as what it leads to, but one to a directory is told apart.
EntryKind KindBehindLink(int directory, const char* name) {
  struct stat status {};
  if (fstatat(directory, name, &status, 0) != 0) return EntryKind::Other;
  const EntryKind kind = KindOf(status.st_mode);
  return kind == EntryKind::Directory ? EntryKind::DirectoryLink : kind;
}

// The directory read says what most entries are; only links, and file systems that do not tell, cost a look.
EntryKind KindOfEntry(int directory, const dirent64& entry) {
  switch (entry.d_type) {
    case DT_REG:
      return EntryKind::File;
    case DT_DIR:
      return EntryKind::Directory;
    case DT_LNK:
      return KindBehindLink(directory, entry.d_name);
    case DT_UNKNOWN: {
      struct stat status {};
      if (fstatat(directory, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return EntryKind::Other;
      return S_ISLNK(status.st_mode) ? KindBehindLink(directory, entry.d_name) : KindOf(status.st_mode);
    }
    default:
      return EntryKind::Other;
  }
}

struct OpenDirectory {
  explicit OpenDirectory(const std::string& path)
      : descriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor < 0) RaiseSystemError(errno, path);
  }
  ~OpenDirectory() { close(descriptor); }
  OpenDirectory(const OpenDirectory&) = delete;
  OpenDirectory& operator=(const OpenDirectory&) = delete;

  const int descriptor;
};

// No file has such a name; the system would cut it off there and find another file.
bool HoldsZeroByte(const std::string& path) {
  return path.find('\0') != std::string::npos;
}

// Whether it is absolute and names each directory on its way once, without "." and "..".
bool IsNormal(std::string_view path) {
  if (!path.starts_with('/') || path.ends_with('/')) return false;
  for (auto slash = path.find('/'); slash != std::string_view::npos; slash = path.find('/', slash + 1)) {
    const char next = path[slash + 1];
    if (next == '/' || next == '.') return false;
  }
  return true;
}

bool IsHidden(std::string_view path) {
  const auto slash = path.rfind('/');
  const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
  return name.starts_with('.') && name != "." && name != "..";
}

// The finaliser of SplitMix64: each bit of the number changes about half of the hash's.
void Mix(std::uint64_t& hash, std::uint64_t number) {
  hash += number + 0x9E3779B97F4A7C15U;
  hash = (hash ^ (hash >> 30)) * 0xBF58476D1CE4E5B9U;
  hash = (hash ^ (hash >> 27)) * 0x94D049BB133111EBU;
  hash ^= hash >> 31;
}

// Times of files move on with the kernel's tick, so a directory that has only just changed may change once
// more without its time telling.
bool IsJustNow(const timespec& time) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto since = (now.tv_sec - time.tv_sec) * 1'000'000'000LL + (now.tv_nsec - time.tv_nsec);
  constexpr long long someTicks = 50'000'000;
  return since >= 0 && since < someTicks;
}

std::uint64_t DifferentEachTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
}

void MixTime(std::uint64_t& hash, const timespec& time) {
  Mix(hash, static_cast<std::uint64_t>(time.tv_sec));
  Mix(hash, static_cast<std::uint64_t>(time.tv_nsec));
}

// Tells one state of a file or directory from another. What was changed just now may change again within the
// same tick of the file system's clock, so it looks different each time.
std::uint64_t StampOf(const struct stat& status) {
  std::uint64_t hash = 0;
  Mix(hash, status.st_dev);
  Mix(hash, status.st_ino);
  Mix(hash, static_cast<std::uint64_t>(status.st_size));
  MixTime(hash, status.st_mtim);
  MixTime(hash, status.st_ctim);
  if (IsJustNow(status.st_mtim)) Mix(hash, DifferentEachTime());
  return hash == 0 ? 1 : hash;
}

// Tells of a change when it is over, however it ends.
class Changing {
 public:
  explicit Changing(RecentLooks& looks) : looks_(looks) {}
  ~Changing() { looks_.ForgetAll(); }
  Changing(const Changing&) = delete;
  Changing& operator=(const Changing&) = delete;

 private:
  RecentLooks& looks_;
};

// What is there now.
std::optional<FileFacts> LookAt(const std::string& path) {
  struct stat status {};
  if (HoldsZeroByte(path) || lstat(path.c_str(), &status) != 0) return {};
  const bool isLink = S_ISLNK(status.st_mode);
  if (isLink && stat(path.c_str(), &status) != 0) return {};
  FileFacts facts;
  facts.kind = KindOf(status.st_mode);
  if (isLink && facts.kind == EntryKind::Directory) facts.kind = EntryKind::DirectoryLink;
  facts.size = static_cast<std::uint64_t>(status.st_size);
  facts.modified = status.st_mtim.tv_sec;
  facts.hidden = IsHidden(path);
  facts.stamp = StampOf(status);
  return facts;
}

}  // namespace

std::vector<std::string> PosixFileSystem::Drives() const {
  std::vector<std::string> drives{"/"};
  for (std::string& place : RemovablePlaces()) drives.push_back(std::move(place));
  return drives;
}

std::string PosixFileSystem::DriveOf(const std::string& path) const {
  const std::string wanted = Normalised(path) + "/";
  std::string drive = "/";
  for (const std::string& place : RemovablePlaces()) {
    if (wanted.starts_with(place + "/") && place.size() > drive.size()) drive = place;
  }
  return drive;
}

std::string PosixFileSystem::CurrentDirectory() const {
  char path[PATH_MAX];
  // The directory may have been removed under the process.
  return getcwd(path, sizeof path) ? path : "/";
}

void PosixFileSystem::ChDir(const std::string& path) {
  const Changing changing(looks_);
  if (HoldsZeroByte(path)) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  if (chdir(path.c_str()) != 0) RaiseSystemError(errno, path);
}

std::string PosixFileSystem::Normalised(const std::string& path) const {
  if (IsNormal(path)) return path;
  const std::string whole = path.starts_with('/') ? path : CurrentDirectory() + "/" + path;
  std::string result;
  for (std::size_t start = 0; start <= whole.size();) {
    const auto end = std::min(whole.find('/', start), whole.size());
    const std::string_view name = std::string_view(whole).substr(start, end - start);
    start = end + 1;
    if (name == "..") {
      result.resize(result.empty() ? 0 : result.rfind('/'));
    } else if (!name.empty() && name != ".") {
      result += '/';
      result += name;
    }
  }
  return result.empty() ? "/" : result;
}

std::vector<DirectoryEntry> PosixFileSystem::ReadDirectory(const std::string& path) const {
  const OpenDirectory directory(path);
  // What can be read but not entered shows names only; a search could not open one of them.
  if (faccessat(directory.descriptor, ".", X_OK, AT_EACCESS) != 0) RaiseSystemError(errno, path);
  // Asked for by the block, as the C library does, but with no room to be made for each directory.
  alignas(dirent64) std::byte block[32768];
  std::vector<DirectoryEntry> entries;
  while (true) {
    const ssize_t bytes = getdents64(directory.descriptor, block, sizeof block);
    if (bytes < 0) RaiseSystemError(errno, path);
    if (bytes == 0) return entries;
    for (ssize_t at = 0; at < bytes;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(block + at);
      at += entry.d_reclen;
      const std::string_view name = entry.d_name;
      if (name == "." || name == "..") continue;
      entries.push_back({std::string(name), KindOfEntry(directory.descriptor, entry), name.starts_with('.')});
    }
  }
}

std::uint64_t PosixFileSystem::DirectoryStamp(const std::string& path) const {
  const auto facts = Look(path);
  if (facts && facts->kind == EntryKind::Directory) return facts->stamp;
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return 0;
  return StampOf(status);
}

std::optional<FileFacts> PosixFileSystem::Look(const std::string& path) const {
  if (const auto known = looks_.Of(path)) return known;
  const std::uint64_t begun = looks_.Changes();
  const auto facts = LookAt(path);
  if (facts) looks_.Keep(path, *facts, begun);
  return facts;
}

std::shared_ptr<const ByteSource> PosixFileSystem::Open(const std::string& path) const {
  if (HoldsZeroByte(path)) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  return OpenFileSource(path);
}

void PosixFileSystem::Write(const std::string& path, const Produce& produce) {
  const Changing changing(looks_);
  if (HoldsZeroByte(path)) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  WriteFile(path, produce);
}

void PosixFileSystem::WriteOver(const std::string& path, std::string_view content) {
  const Changing changing(looks_);
  if (HoldsZeroByte(path)) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  OverwriteFile(path, content, [this](const std::string& target) { return AsidePath(target); });
}

void PosixFileSystem::Remove(const std::string& path) {
  const Changing changing(looks_);
  if (unlink(path.c_str()) == 0) return;
  if (errno == ENOENT) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  RaiseSystemError(errno, path);
}

void PosixFileSystem::MakeDirectory(const std::string& path) {
  const Changing changing(looks_);
  if (mkdir(path.c_str(), 0777) == 0) return;
  // A directory that is there already counts as one that can't be made.
  if (errno == EEXIST) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  RaiseSystemError(errno, path);
}

std::unique_ptr<ByteSink> PosixFileSystem::OpenAtEnd(const std::string& path, bool emptied) {
  looks_.Exclude(path);
  if (HoldsZeroByte(path)) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  return OpenFileAtEnd(path, emptied);
}

}  // namespace lumidex
