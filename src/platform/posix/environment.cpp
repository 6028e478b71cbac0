#include "platform/posix/environment.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace lumidex {
namespace {

std::string Without(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

std::string FolderIn(const Environment& environment, const char* variable, const char* belowHome) {
  const std::string value = environment(variable);
  if (value.starts_with('/')) return Without(value);
  return HomeFolder(environment) + belowHome;
}

}  // namespace

std::string ReadEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string HomeFolder(const Environment& environment) {
  const std::string home = environment("HOME");
  if (home.starts_with('/')) return Without(home);
  const passwd* user = getpwuid(getuid());
  return user && user->pw_dir && user->pw_dir[0] == '/' ? Without(user->pw_dir) : "/";
}

std::string DataHome(const Environment& environment) {
  return FolderIn(environment, "XDG_DATA_HOME", "/.local/share");
}

std::string ConfigHome(const Environment& environment) {
  return FolderIn(environment, "XDG_CONFIG_HOME", "/.config");
}

std::string CacheHome(const Environment& environment) {
  return FolderIn(environment, "XDG_CACHE_HOME", "/.cache");
}

bool MakeFolders(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return S_ISDIR(status.st_mode);
  const auto slash = path.rfind('/');
  if (slash != std::string::npos && slash > 0 && !MakeFolders(path.substr(0, slash))) return false;
  return mkdir(path.c_str(), 0700) == 0 || errno == EEXIST;
}

}  // namespace lumidex
