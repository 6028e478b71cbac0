#include "gallery/encoders/pnm_encoder.h"

#include <string>

#include "gallery/encoders/byte_writer.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

// Writes the samples of one row after the other, as digits in short lines or as bytes.
class Samples {
 public:
  Samples(int type, Size size, PnmKind kind) : plain_(kind == PnmKind::Plain) {
    file_.Append("P" + std::to_string(plain_ ? type : type + 3) + "\n" + std::to_string(size.width) + " " +
                 std::to_string(size.height) + "\n" + (type == 1 ? "" : "255\n"));
  }
  void Put(std::uint32_t value) {
    if (!plain_) {
      file_.U8(value);
      return;
    }
    // No line above 70 characters, as the format asks.
    file_.Append(std::to_string(value & 255) + (++inLine_ % 16 == 0 ? "\n" : " "));
  }
  std::vector<std::uint8_t> Take() { return file_.Take(); }

 private:
  ByteWriter file_;
  bool plain_;
  int inLine_ = 0;
};

std::uint32_t Luma(std::uint32_t word) {
  return ((word >> 16 & 255) * 299 + (word >> 8 & 255) * 587 + (word & 255) * 114 + 500) / 1000;
}

}  // namespace

std::vector<std::uint8_t> EncodePbm(const IndexedPicture& picture, PnmKind kind) {
  Samples samples(1, picture.size, kind);
  for (int y = 0; y < picture.size.height; ++y) {
    const std::span<const std::uint8_t> row = picture.Row(y);
    if (kind == PnmKind::Plain) {
      for (const std::uint8_t white : row) samples.Put(white == 0 ? 1 : 0);
      continue;
    }
    for (std::size_t x = 0; x < row.size(); x += 8) {
      std::uint32_t packed = 0;
      for (std::size_t i = x; i < x + 8; ++i)
        packed = packed << 1 | (i < row.size() && row[i] == 0 ? 1U : 0U);
      samples.Put(packed);
    }
  }
  return samples.Take();
}

std::vector<std::uint8_t> EncodePgm(const Pixels& pixels, PnmKind kind) {
  Samples samples(2, pixels.GetSize(), kind);
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y)) samples.Put(Luma(word));
  return samples.Take();
}

std::vector<std::uint8_t> EncodePpm(const Pixels& pixels, PnmKind kind) {
  Samples samples(3, pixels.GetSize(), kind);
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y))
      for (const int shift : {16, 8, 0}) samples.Put(word >> shift & 255);
  return samples.Take();
}

}  // namespace lumidex
