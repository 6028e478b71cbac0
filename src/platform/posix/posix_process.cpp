#include "platform/posix/posix_process.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "platform/posix/absolute_path.h"
#include "platform/posix/file_address.h"

namespace lumidex {
namespace {

bool CanMakeFilesIn(const std::string& folder) {
  // Asking with access() would tell root that everything is writable, also a read-only file system's folders.
  std::string probe = folder + "/.lumidex-XXXXXX";
  const int descriptor = mkostemp(probe.data(), O_CLOEXEC);
  if (descriptor < 0) return false;
  close(descriptor);
  unlink(probe.c_str());
  return true;
}

// Links what was installed into the folder; a file of the user's own under the same name stays.
void LinkInstalled(const std::string& installed, const std::string& folder) {
  DIR* directory = opendir(installed.c_str());
  if (!directory) return;
  while (const dirent* entry = readdir(directory)) {
    const std::string name = entry->d_name;
    if (name.starts_with('.')) continue;
    const std::string link = folder + "/" + name;
    struct stat status {};
    const bool dangles =
        lstat(link.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && stat(link.c_str(), &status) != 0;
    // From an installation that has moved since.
    if (dangles) unlink(link.c_str());
    if (symlink((installed + "/" + name).c_str(), link.c_str()) != 0 && errno != EEXIST) break;
  }
  closedir(directory);
}

// A folder that belongs to this user alone; made when it is missing. False when it is somebody else's.
bool IsOwnFolder(const std::string& folder) {
  if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return false;
  struct stat status {};
  if (lstat(folder.c_str(), &status) != 0) return false;
  return S_ISDIR(status.st_mode) && status.st_uid == geteuid() && (status.st_mode & 022) == 0;
}

std::string LockFile(const Environment& environment) {
  const std::string runtime = environment("XDG_RUNTIME_DIR");
  struct stat status {};
  if (runtime.starts_with('/') && stat(runtime.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
      status.st_uid == geteuid()) {
    return runtime + "/lumidex.lock";
  }
  const std::string folder = "/tmp/lumidex-" + std::to_string(geteuid());
  return IsOwnFolder(folder) ? folder + "/lumidex.lock" : std::string();
}

}  // namespace

std::string QuotedArgument(int count, const char* const* arguments, const std::string& currentDirectory) {
  if (count < 2 || arguments[1][0] == '\0') return {};
  return '"' + AbsolutePath(PathOfAddress(arguments[1]), currentDirectory) + '"';
}

std::string ProgramFolder(const std::string& executableFolder, const std::string& installed,
                          const Environment& environment) {
  if (CanMakeFilesIn(executableFolder)) return executableFolder;
  const std::string folder = DataHome(environment) + "/Lumidex";
  if (!MakeFolders(folder)) return executableFolder;
  LinkInstalled(installed, folder);
  return folder;
}

std::string ExecutableLocation() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return ".";
  const std::string file(path, static_cast<std::size_t>(length));
  const auto slash = file.rfind('/');
  return slash == 0 ? "/" : file.substr(0, slash);
}

InstanceLock::InstanceLock(const Environment& environment) {
  const std::string file = LockFile(environment);
  if (file.empty()) return;
  // Closed in programs that this one starts, or they would hold the lock on.
  descriptor_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (descriptor_ < 0) return;
  heldByAnother_ = flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

InstanceLock::~InstanceLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

PosixProcess::PosixProcess(int count, const char* const* arguments, const std::string& installed,
                           const Environment& environment)
    : environment_(environment), folder_(ProgramFolder(ExecutableLocation(), installed, environment)) {
  commandLine_ = QuotedArgument(count, arguments, CurrentDirectoryName(environment));
}

bool PosixProcess::HasPreviousInstance() {
  if (!lock_) lock_ = std::make_unique<InstanceLock>(environment_);
  return lock_->IsHeldByAnother();
}

}  // namespace lumidex
