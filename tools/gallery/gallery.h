#pragma once
// The table of the gallery's pictures: which scene, at which size, in which format.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "drawing/canvas.h"

namespace lumidex {

struct GalleryPicture {
  std::string file;
  Size size;
  void (*scene)(Canvas&);
  std::string description;  // one line for gallery/README.md
  std::function<std::vector<std::uint8_t>(const Pixels&)> encode;
  // For a format whose palette is a file of its own, beside the picture and ending in ".pal".
  std::function<std::vector<std::uint8_t>(const Pixels&)> encodePalette = nullptr;
};

// The picture's scene in full colour, as it is before a format takes colours away.
Pixels DrawScene(const GalleryPicture& picture);

const std::vector<GalleryPicture>& GalleryPictures();

}  // namespace lumidex
