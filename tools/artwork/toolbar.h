#pragma once
// The nineteen pictures of the main window's toolbar, under the keys of its image list.

#include <span>
#include <string_view>

#include "drawing/canvas.h"

namespace lumidex {

struct ToolbarPicture {
  std::string_view key;
  void (*draw)(Canvas&);  // on IconGrid
};

std::span<const ToolbarPicture> ToolbarPictures();

}  // namespace lumidex
