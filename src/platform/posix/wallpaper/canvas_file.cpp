#include "platform/posix/wallpaper/canvas_file.h"

#include <png.h>

#include <bit>

#include "base/run_time_error.h"
#include "pictures/pixels.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

bool WritePng(const Pixels& pixels, const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.Width());
  image.height = static_cast<png_uint_32>(pixels.Height());
  image.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
  // Large and soon replaced: time counts more than bytes.
  image.flags = PNG_IMAGE_FLAG_FAST;
  return png_image_write_to_file(&image, path.c_str(), 0, pixels.Data(), 0, nullptr) != 0;
}

}  // namespace

std::string DrawWallpaperFile(const std::string& file, WallpaperMode mode, const MonitorPlace& output) {
  std::string name = output.name;
  for (char& character : name) {
    if (character == '/') character = '_';
  }
  const std::string path = file.substr(0, file.rfind('.')) + "-" + name + ".png";
  try {
    const Picture picture = OpenPicture(PosixFileSystem(), file);
    const MonitorPlace whole{output.name, 0, 0, output.size};
    return WritePng(DrawWallpaper(picture, mode, output.size, {whole}), path) ? path : std::string();
  } catch (const RunTimeError&) {
    return {};
  }
}

}  // namespace lumidex
