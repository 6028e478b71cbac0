#include "platform/posix/posix_process.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace lumidex {
namespace {

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

std::string Decoded(std::string_view text) {
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escaped =
        text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
    path += escaped ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])) : text[i];
    if (escaped) i += 2;
  }
  return path;
}

// "file:///a", "file://localhost/a" and "file:/a" give "/a"; others are no address of a file here.
std::string PathOfAddress(const std::string& argument) {
  std::string_view rest = argument;
  if (!rest.starts_with("file:/")) return argument;
  rest.remove_prefix(5);
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    const std::string_view host = rest.substr(0, rest.find('/'));
    if (!host.empty() && host != "localhost") return argument;
    rest.remove_prefix(host.size());
  }
  return Decoded(rest);
}

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
  std::string path = PathOfAddress(arguments[1]);
  if (!path.starts_with('/')) {
    path = currentDirectory + (currentDirectory.ends_with('/') ? "" : "/") + path;
  }
  // A directory named with its separator, as a shell completes it, has the same name without.
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return '"' + path + '"';
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
  char current[PATH_MAX];
  commandLine_ = QuotedArgument(count, arguments, getcwd(current, sizeof current) ? current : "/");
}

bool PosixProcess::HasPreviousInstance() {
  if (!lock_) lock_ = std::make_unique<InstanceLock>(environment_);
  return lock_->IsHeldByAnother();
}

}  // namespace lumidex
