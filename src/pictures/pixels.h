#pragma once
// A block of decoded pixels: rows top-down, one 32-bit word a pixel (0xAARRGGBB), no padding between rows.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "pictures/size.h"

namespace lumidex {

enum class PixelFormat {
  Rgb,                // alpha byte always 255
  Argb,               // straight alpha, what decoders give
  ArgbPremultiplied,  // what window systems paint
};

// What every picture must keep to. A side above `side` or a picture above `bytes` of pixels is refused
// before anything is allocated.
struct PictureLimits {
  int side = 32767;
  std::int64_t bytes = std::int64_t{1} << 30;
};

// What a file asks for but does not hold, as the rows behind a cut, is shown white.
inline constexpr std::uint32_t blankPixel = 0xFFFFFFFF;

// What a file of at most 1 MiB may ask for: enough for any scanned page, and too little for a few bytes to
// take the machine's memory.
inline constexpr std::int64_t smallFilePixelBytes = std::int64_t{384} << 20;

// Raises InvalidPicture when a side is below 1 or the picture is beyond the limits. Decoders call this with
// the header's numbers and the file's length in bytes before anything is allocated.
void CheckSize(Size size, const PictureLimits& limits, std::uint64_t fileSize);
// The same for numbers as wide as a header may hold them; returns the size.
Size CheckedSize(std::int64_t width, std::int64_t height, const PictureLimits& limits,
                 std::uint64_t fileSize);

// A shared buffer of pixels: copies share it, so write only into a block that was just made.
class Pixels {
 public:
  Pixels() = default;

  // The one place where pixels are allocated; every pixel starts as `fill`. A side below 1, or one beyond
  // the limits, raises InvalidPicture; memory that can not be had raises OutOfMemory.
  static Pixels Make(Size size, PixelFormat format, std::uint32_t fill, const PictureLimits& limits = {});
  // As above with the content left as it comes, for callers that write every pixel.
  static Pixels MakeUnfilled(Size size, PixelFormat format, const PictureLimits& limits = {});

  bool IsEmpty() const { return size_.width == 0; }
  // True when another handle holds the same buffer. Only this one's own words may be written over.
  bool IsShared() const { return words_.use_count() > 1; }
  Size GetSize() const { return size_; }
  int Width() const { return size_.width; }
  int Height() const { return size_.height; }
  PixelFormat Format() const { return format_; }
  // Says what the words already are, when that is only known after decoding; changes no pixel.
  void SetFormat(PixelFormat format) { format_ = format; }
  std::size_t ByteCount() const;

  std::span<const std::uint32_t> Row(int y) const;
  std::span<std::uint32_t> Row(int y);
  // Row `first` and all below it.
  std::span<std::uint32_t> RowsFrom(int first);
  const std::uint32_t* Data() const { return words_.get(); }
  std::uint32_t* Data() { return words_.get(); }

 private:
  std::shared_ptr<std::uint32_t[]> words_;
  Size size_;
  PixelFormat format_ = PixelFormat::Rgb;
};

}  // namespace lumidex
