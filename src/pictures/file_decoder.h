#pragma once
// What all decoders of files have in common: the file, how it was opened, and the rules for the size and the
// depth that they tell.

#include <string_view>

#include "pictures/codec.h"

namespace lumidex {

// The least depth of a bitmap that holds pixels of `stored` bits in so many channels: 1, 2, 4, 8, 16, 24 or
// 32. What is deeper is decoded to 8 bits a channel: 48 become 24, or 32 when a fourth channel is among them.
constexpr int BitmapDepth(int stored, int channels = 3) {
  if (stored > 32) return stored <= 48 && channels <= 3 ? 24 : 32;
  for (const int depth : {1, 2, 4, 8, 16, 24})
    if (stored <= depth) return depth;
  return 32;
}

class FileDecoder : public Decoder {
 protected:
  // For decoders that find out about the shape by themselves, and then call SetShape.
  FileDecoder(const PictureData& data, const OpenOptions& options, std::string_view format);
  // As below for those that know it already.
  FileDecoder(const PictureData& data, const OpenOptions& options, Size size, int storedBits,
              std::string_view format);

  // `storedBits` are those of a pixel in the file; facts say what holds them. Raises InvalidPicture when the
  // size is beyond the limits.
  void SetShape(Size size, int storedBits, int channels = 3);
  // A size as wide as a header may hold it, which is raised for as above.
  Size Checked(std::int64_t width, std::int64_t height) const;

  const PictureData& Data() const { return data_; }
  const OpenOptions& Options() const { return options_; }
  const PictureLimits& Limits() const { return options_.limits; }
  // Opaque pixels of the size told in the facts, still to be written.
  Pixels UnfilledPixels() const { return Pixels::MakeUnfilled(facts_.size, PixelFormat::Rgb, Limits()); }

 private:
  PictureData data_;
  OpenOptions options_;
};

}  // namespace lumidex
