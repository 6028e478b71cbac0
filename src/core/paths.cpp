#include "core/paths.h"

#include "base/pattern_list.h"
#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {
namespace {

// True when a visible file of the directory matches the pattern, or is there at all when the pattern is
// empty.
bool AnyFileMatches(const FileSystem& files, const std::string& directory, const std::string& pattern) {
  const PatternList patterns(pattern.empty() ? "*" : pattern);
  for (const DirectoryEntry& entry : files.ReadDirectory(directory)) {
    if (entry.kind == EntryKind::File && !entry.hidden && patterns.Matches(entry.name)) return true;
  }
  return false;
}

}  // namespace

std::string GetAppPath(App& app) {
  std::string folder = app.platform.process.ExecutableFolder();
  if (!folder.ends_with(app.platform.files.Separator())) folder += app.platform.files.Separator();
  return folder;
}

bool FileExists(const App& app, const std::string& path) {
  return !path.empty() && FileExists(app, path, app.platform.files.Look(path));
}

bool FileExists(const App& app, const std::string& path, const std::optional<FileFacts>& facts) {
  const FileSystem& files = app.platform.files;
  if (facts && facts->kind == EntryKind::File) return !facts->hidden;
  const auto nameStart = path.rfind(files.Separator()) + 1;  // npos + 1 is 0
  const std::string name = path.substr(nameStart);
  if (!name.empty() && name.find_first_of("*?") == std::string::npos) return false;
  try {
    return AnyFileMatches(files, nameStart == 0 ? files.CurrentDirectory() : path.substr(0, nameStart), name);
  } catch (const RunTimeError&) {
    return false;
  }
}

void SplitPath(const App& app, const std::string& path, std::string& drive, std::string& directory,
               std::string& file) {
  if (path.empty()) return;
  const char separator = app.platform.files.Separator();
  const bool hasDrive = separator == '\\';
  drive = hasDrive ? Left(path, 2) : std::string();
  const std::string_view rest = std::string_view(path).substr(drive.size());
  const auto nameStart = rest.rfind(separator) + 1;  // npos + 1 is 0
  directory = rest.substr(0, nameStart);
  if (nameStart > 0) file = rest.substr(nameStart);
}

std::string ShortenPath(const App& app, const std::string& path, std::int32_t maxLength) {
  const std::int32_t length = Len(path);
  if (length <= maxLength) return path;
  const std::int32_t start = length - (maxLength - 6);
  const std::string tail = start > length ? std::string() : Mid(path, start);
  const auto cut = tail.find(app.platform.files.Separator());
  return Left(path, 3) + "..." + (cut == std::string::npos ? std::string() : tail.substr(cut));
}

}  // namespace lumidex
