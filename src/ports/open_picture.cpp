#include "ports/open_picture.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {
namespace {

std::size_t ExtensionStart(const std::string& path, char separator) {
  const auto name = path.rfind(separator) + 1;  // npos + 1 is 0
  const auto point = path.rfind('.');
  return point == std::string::npos || point < name ? path.size() : point;
}

std::vector<std::uint8_t> PaletteFile(const FileSystem& files, const std::string& base) {
  for (const char* ending : {".pal", ".PAL", ".Pal"}) {
    const auto facts = files.Look(base + ending);
    if (!facts || facts->kind != EntryKind::File) continue;
    try {
      return PictureData(files.Open(base + ending), ".pal").Stretch(0, 65536);
    } catch (const RunTimeError&) {
      // Without its palette the picture is still shown, in greys.
    }
  }
  return {};
}

}  // namespace

PictureData OpenPictureData(const FileSystem& files, const std::string& path) {
  const auto start = ExtensionStart(path, files.Separator());
  PictureData data(files.Open(path), LCase(path.substr(start)));
  if (data.Extension() == ".cut") data.paletteFile = PaletteFile(files, path.substr(0, start));
  return data;
}

Picture OpenPicture(const FileSystem& files, const std::string& path, const OpenOptions& options) {
  return Picture::Open(OpenPictureData(files, path), options);
}

}  // namespace lumidex
