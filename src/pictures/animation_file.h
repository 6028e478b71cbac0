#pragma once
// A small animation: frames of one size that follow one another at a steady pace, as plain or run-length
// coded bitmaps in an AVI file. Sound, and frames coded in any other way, are not for it.

#include <optional>
#include <vector>

#include "pictures/dib.h"

namespace lumidex {

class AnimationFile {
 public:
  // Raises InvalidPicture when the bytes are no such file.
  explicit AnimationFile(std::vector<std::uint8_t> bytes);

  int FrameCount() const { return static_cast<int>(frames_.size()); }
  Size FrameSize() const { return header_.size; }
  // At least 10.
  int MillisecondsPerFrame() const { return millisecondsPerFrame_; }

  // Makes `shown`, which holds the frame before (or nothing, for the first one), into frame `number`: a frame
  // may say only what changes. What is damaged stays as it was; raises nothing but OutOfMemory.
  void Advance(Pixels& shown, int number) const;

 private:
  struct Stretch {
    std::size_t offset = 0, length = 0;
  };
  void ReadList(Stretch list, int depth);
  void ReadChunk(std::uint32_t kind, Stretch chunk);
  Bytes BytesOf(Stretch stretch) const { return Bytes(bytes_).subspan(stretch.offset, stretch.length); }

  std::vector<std::uint8_t> bytes_;
  std::optional<DibHeader> found_;
  DibHeader header_;
  std::vector<Stretch> frames_;
  int millisecondsPerFrame_ = 100;
};

// Makes every pixel of the colour that the top left one has transparent, as the ground of an animation is.
void ClearGround(Pixels& pixels, std::uint32_t ground);

}  // namespace lumidex
