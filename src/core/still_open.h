#pragma once
// Tells a routine that yields whether its window has been open all the while: it may have been closed in a
// yield, and opened anew in the same one.

namespace lumidex {

// `Window` counts its loads in a member `Openings`.
template <class Window>
class StillOpen {
 public:
  explicit StillOpen(const Window& window) : window_(window), opening_(window.Openings) {}
  explicit operator bool() const { return window_.IsLoaded() && window_.Openings == opening_; }

 private:
  const Window& window_;
  const unsigned opening_;
};

}  // namespace lumidex
