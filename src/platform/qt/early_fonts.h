#pragma once
// Reads the desktop's font configuration on a thread of its own while the window system is being connected
// to, and then the names of its fonts while the windows are made: together they are the longest single step
// before the first text can be drawn.

#include <optional>
#include <thread>

namespace lumidex {

class EarlyFonts {
 public:
  EarlyFonts();

  // To be called once the application object stands.
  void LearnNames();

 private:
  // None where there are no threads: the fonts are then read when they are first asked for.
  std::optional<std::jthread> reading_, learning_;
};

}  // namespace lumidex
