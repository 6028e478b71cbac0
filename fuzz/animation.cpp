// Plays whatever counts as an animation file.

#include <cstddef>
#include <cstdint>

#include "base/run_time_error.h"
#include "pictures/animation_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace lumidex;
  constexpr int mostFrames = 8;
  try {
    const AnimationFile file({bytes, bytes + size});
    const Size frame = file.FrameSize();
    // What is refused for its size elsewhere would only slow the fuzzer down here.
    if (std::int64_t{frame.width} * frame.height > 1 << 20) return 0;
    Pixels shown;
    for (int number = 0; number < file.FrameCount() && number < mostFrames; ++number)
      file.Advance(shown, number);
    ClearGround(shown, 0xFFFFFFFF);
  } catch (const RunTimeError&) {
  }
  return 0;
}
