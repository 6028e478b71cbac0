#include "platform/posix/file_named_like.h"

#include <unistd.h>

#include <filesystem>

#include "base/text.h"

namespace lumidex {

std::string FileNamedLike(const std::string& path) {
  if (path.empty()) return {};
  if (access(path.c_str(), F_OK) == 0) return path;
  const auto nameStart = path.rfind('/') + 1;  // npos + 1 is 0
  const std::string directory = path.substr(0, nameStart), wanted = LCase(path.substr(nameStart));
  std::string found;
  std::error_code failed;
  for (std::filesystem::directory_iterator entry(directory.empty() ? "." : directory, failed), end;
       !failed && entry != end; entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    if (LCase(name) == wanted && (found.empty() || name < found)) found = name;
  }
  return found.empty() ? found : directory + found;
}

}  // namespace lumidex
