#include "gallery/encoders/icon_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

enum class Kind : std::uint32_t { Icon = 1, Cursor = 2 };

// The information header with doubled height, the colours bottom-up, then the mask of one bit a pixel.
std::vector<std::uint8_t> Image(const Pixels& pixels) {
  ByteWriter image;
  image.U32Le(40);
  image.U32Le(static_cast<std::uint32_t>(pixels.Width()));
  image.U32Le(2 * static_cast<std::uint32_t>(pixels.Height()));
  image.U16Le(1);
  image.U16Le(32);
  image.Zeros(24);
  for (int y = pixels.Height() - 1; y >= 0; --y)
    for (const std::uint32_t word : pixels.Row(y)) image.U32Le(word);
  for (int y = pixels.Height() - 1; y >= 0; --y) {
    const std::span<const std::uint32_t> row = pixels.Row(y);
    for (std::size_t x = 0; x < row.size(); x += 32) {
      std::uint32_t mask = 0;
      for (std::size_t i = x; i < x + 32; ++i)
        mask = mask << 1 | (i < row.size() && row[i] >> 24 == 0 ? 1U : 0U);
      image.U32Be(mask);
    }
  }
  return image.Take();
}

// The two numbers of a directory entry that tell icons from cursors: planes and depth, or the hot spot.
std::vector<std::uint8_t> Assemble(Kind kind, std::span<const Pixels> pictures, std::uint32_t first,
                                   std::uint32_t second) {
  ByteWriter file;
  file.U16Le(0);
  file.U16Le(static_cast<std::uint32_t>(kind));
  file.U16Le(static_cast<std::uint32_t>(pictures.size()));
  ByteWriter images;
  const std::size_t directory = 6 + 16 * pictures.size();
  for (const Pixels& pixels : pictures) {
    const std::vector<std::uint8_t> image = Image(pixels);
    file.U8(static_cast<std::uint32_t>(pixels.Width()));  // 256 is written as 0
    file.U8(static_cast<std::uint32_t>(pixels.Height()));
    file.U16Le(0);
    file.U16Le(first);
    file.U16Le(second);
    file.U32Le(static_cast<std::uint32_t>(image.size()));
    file.U32Le(static_cast<std::uint32_t>(directory + images.Size()));
    images.Append(image);
  }
  file.Append(images.Take());
  return file.Take();
}

}  // namespace

std::vector<std::uint8_t> EncodeIcon(std::span<const Pixels> pictures) {
  return Assemble(Kind::Icon, pictures, 1, 32);
}

std::vector<std::uint8_t> EncodeCursor(const Pixels& picture, int hotX, int hotY) {
  return Assemble(Kind::Cursor, {&picture, 1}, static_cast<std::uint32_t>(hotX),
                  static_cast<std::uint32_t>(hotY));
}

}  // namespace lumidex
