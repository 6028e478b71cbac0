#pragma once
// Where a monitor stands on the screen.

#include <string>

#include "pictures/size.h"

namespace lumidex {

// In device pixels.
struct MonitorPlace {
  std::string name;  // of its output, "eDP-1"
  int x = 0, y = 0;
  Size size;
};

}  // namespace lumidex
