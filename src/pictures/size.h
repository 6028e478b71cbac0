#pragma once
// A size in pixels.

namespace lumidex {

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

}  // namespace lumidex
