#include "imaging/side_files.h"

#include <algorithm>

#include "base/text.h"
#include "core/paths.h"
#include "imaging/proper_names.h"

namespace lumidex {
namespace {

// The cut takes an ending of three letters for granted.
constexpr std::int32_t endingLength = 4;

std::string SidePath(const App& app, const std::string& picturePath, const char* ending) {
  std::string drive, directory, file;
  SplitPath(app, picturePath, drive, directory, file);
  const std::string name = ProperFileName(app, picturePath);
  return app.AppPath + "thmbnail" + directory + Left(name, std::max(0, Len(name) - endingLength)) + ending;
}

}  // namespace

std::string StoredThumbnailPath(const App& app, const std::string& picturePath) {
  return SidePath(app, picturePath, ".THB");
}

std::string StoredFactsPath(const App& app, const std::string& picturePath) {
  return SidePath(app, picturePath, ".G4U");
}

}  // namespace lumidex
