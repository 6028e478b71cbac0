#pragma once
// Device-independent bitmaps: a header, colours and pixels, as they stand in BMP files, icons, cursors and
// metafiles. All sizes of header from the 12 bytes of OS/2 1.x to the 124 of Windows' fifth version.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "pictures/codec.h"
#include "pictures/palettes.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

// Jpeg and Png: the pixels are a whole file of that kind.
enum class DibCoding { Plain, BitFields, Rle4, Rle8, Rle24, Huffman, Jpeg, Png };

struct DibOptions {
  PictureLimits limits;
  // Length of the whole file, which bounds what the header may ask for.
  std::uint64_t fileSize = 0;
  // How many bytes of it stand before the header.
  std::uint64_t headerPlace = 0;
  // An icon's bitmap: the stated height counts the mask too.
  bool icon = false;
  // Where the pixels begin, counted from the header, when something outside says so; 0 when they follow at
  // once.
  std::size_t pixelOffset = 0;
  // When set, the colour table holds 16-bit positions in these colours (0xAARRGGBB): a metafile's palette.
  std::optional<std::span<const std::uint32_t>> outsideColours;
};

struct DibHeader {
  Size size;
  int bitsPerPixel = 0;
  DibCoding coding = DibCoding::Plain;
  bool topDown = false;
  std::array<std::uint32_t, 4> masks{};  // red, green, blue, alpha; alpha 0 when there is none
  Palette colours{};                     // positions beyond the file's own are black
  std::size_t pixelOffset = 0;           // from the header's first byte
  std::size_t RowBytes() const;          // of Plain and BitFields, padded to 4
};

// Reads the header at the start of `bytes` with its masks and colours; raises InvalidPicture when it makes
// no sense or the size is beyond the limits. The pixels need not be there.
DibHeader ReadDibHeader(Bytes bytes, const DibOptions& options = {});

// Gives `count` bytes of the pixels from `offset` on, fewer at their end; valid until the next call.
using DibPixelSource = std::function<Bytes(std::uint64_t offset, std::size_t count)>;

// Decodes the pixels. What is missing stays blank; pixels that a run-length coding skips are transparent.
Pixels DecodeDib(const DibHeader& header, Bytes pixels, const PictureLimits& limits = {});
// The decoder of the file that the pixels of Jpeg and Png codings are; raises InvalidPicture when it is none.
std::unique_ptr<Decoder> OpenDibFile(DibCoding coding, std::shared_ptr<const ByteSource> pixels,
                                     const PictureLimits& limits);
// The pixels of Plain and BitFields, without holding all of the pixels' bytes at once; see DecodeRequest for
// `wanted`.
Pixels DecodeDibRows(const DibHeader& header, const DibPixelSource& source, const PictureLimits& limits = {},
                     Size wanted = {});

}  // namespace lumidex
