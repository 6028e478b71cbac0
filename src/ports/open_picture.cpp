#include "ports/open_picture.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"
#include "pictures/codec.h"
#include "pictures/picture_data.h"

namespace lumidex {
namespace {

std::size_t ExtensionStart(const std::string& path, char separator) {
  const auto name = path.rfind(separator) + 1;  // npos + 1 is 0
  const auto point = path.rfind('.');
  return point == std::string::npos || point < name ? path.size() : point;
}

// The files that may hold the palette of a picture, the first that can be read being the one. Only Dr. Halo's
// pictures have any.
std::vector<std::string> PalettePaths(const FileSystem& files, const std::string& path) {
  const auto start = ExtensionStart(path, files.Separator());
  constexpr std::string_view ending = ".cut";
  // Nearly no file is one, and every file is asked.
  if (path.size() - start != ending.size() || LCase(path.substr(start)) != ending) return {};
  const std::string base = path.substr(0, start);
  return {base + ".pal", base + ".PAL", base + ".Pal"};
}

std::vector<std::uint8_t> PaletteFile(const FileSystem& files, const std::string& picturePath) {
  for (const std::string& path : PalettePaths(files, picturePath)) {
    const auto facts = files.Look(path);
    if (!facts || facts->kind != EntryKind::File) continue;
    try {
      return PictureData(files.Open(path), ".pal").Stretch(0, 65536);
    } catch (const RunTimeError&) {
      // Without its palette the picture is still shown, in greys.
    }
  }
  return {};
}

}  // namespace

std::uint64_t PictureStamp(const FileSystem& files, const std::string& path) {
  const auto facts = files.Look(path);
  if (!facts || facts->kind != EntryKind::File || facts->stamp == 0) return 0;
  std::uint64_t stamp = facts->stamp;
  for (const std::string& palette : PalettePaths(files, path)) {
    const auto paletteFacts = files.Look(palette);
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
    stamp = stamp * odd + (paletteFacts ? paletteFacts->stamp : 0);
  }
  return std::max<std::uint64_t>(stamp, 1);
}

PictureData OpenPictureData(const FileSystem& files, const std::string& path) {
  PictureData data(files.Open(path), LCase(path.substr(ExtensionStart(path, files.Separator()))));
  data.paletteFile = PaletteFile(files, path);
  return data;
}

Picture OpenPicture(const FileSystem& files, const std::string& path) {
  return OpenPicture(files, path, {});
}

Picture OpenPicture(const FileSystem& files, const std::string& path, const OpenOptions& options) {
  return WorkOn(path, [&] { return Picture::Open(OpenPictureData(files, path), options); });
}

}  // namespace lumidex
