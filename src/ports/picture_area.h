#pragma once
// Where the main window shows pictures.

#include "pictures/size.h"

namespace lumidex {

struct PictureArea {
  Size size;               // in pixels of the screen
  bool stretches = false;  // each picture over all of it
  bool operator==(const PictureArea&) const = default;
};

}  // namespace lumidex
