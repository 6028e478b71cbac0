#pragma once
// Long work on pictures that others may go before.

#include <functional>

namespace lumidex {

// While one lives, what is worked on in its thread pauses by it every tenth of a millisecond or so. Of one
// in another, the inner one counts.
class Pace {
 public:
  explicit Pace(std::function<void()> pause);
  ~Pace();
  Pace(const Pace&) = delete;
  Pace& operator=(const Pace&) = delete;

  // Pauses by the innermost of this thread; there may be none.
  static void Pause();

 private:
  std::function<void()> pause_;
  Pace* outer_;
};

}  // namespace lumidex
