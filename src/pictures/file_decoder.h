#pragma once
// What most decoders of files need: the file, the limits it was opened under, and pixels of the promised
// size.

#include <string_view>

#include "pictures/codec.h"

namespace lumidex {

// The least depth of a bitmap that holds pixels of `stored` bits: 1, 2, 4, 8, 16, 24 or 32. What is deeper is
// decoded to 8 bits a channel: 48 becomes 24, 64 becomes 32.
constexpr int BitmapDepth(int stored) {
  if (stored > 48) return 32;
  if (stored > 32) return 24;
  for (const int depth : {1, 2, 4, 8, 16, 24})
    if (stored <= depth) return depth;
  return 32;
}

class FileDecoder : public Decoder {
 protected:
  // `storedBits` are those of a pixel in the file; facts say what holds them. Raises InvalidPicture when the
  // size is beyond the limits.
  FileDecoder(const PictureData& data, const OpenOptions& options, Size size, int storedBits,
              std::string_view format)
      : data_(data), limits_(options.limits) {
    CheckSize(size, limits_, data.Size());
    facts_.size = size;
    facts_.bitsPerPixel = BitmapDepth(storedBits);
    facts_.format = format;
  }

  const PictureData& Data() const { return data_; }
  // Opaque pixels of the size told in the facts, still to be written.
  Pixels UnfilledPixels() const { return Pixels::MakeUnfilled(facts_.size, PixelFormat::Rgb, limits_); }

 private:
  PictureData data_;
  PictureLimits limits_;
};

}  // namespace lumidex
