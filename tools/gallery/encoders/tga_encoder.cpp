#include "gallery/encoders/tga_encoder.h"

#include <algorithm>

#include "gallery/encoders/byte_writer.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

struct Header {
  unsigned type = 2;
  unsigned colours = 0;
  Size size;
  unsigned depth = 24;
};

void WriteHeader(ByteWriter& writer, const Header& header, const TgaForm& form) {
  writer.U8(0).U8(header.colours > 0).U8(header.type + (form.runLength ? 8 : 0));
  writer.U16Le(0).U16Le(header.colours).U8(header.colours > 0 ? 24 : 0);
  writer.U16Le(0).U16Le(0);
  writer.U16Le(static_cast<std::uint32_t>(header.size.width));
  writer.U16Le(static_cast<std::uint32_t>(header.size.height));
  const unsigned alphaBits = header.depth == 32 ? 8 : 0;
  writer.U8(header.depth).U8(alphaBits + (form.rightToLeft ? 16 : 0) + (form.topDown ? 32 : 0));
}

// Pixels of `pixelBytes` bytes each; packets end with the row.
void WriteRow(ByteWriter& writer, std::span<const std::uint32_t> row, std::size_t pixelBytes,
              bool runLength) {
  const auto put = [&](std::uint32_t value) {
    for (std::size_t byte = 0; byte < pixelBytes; ++byte) writer.U8(value >> (8 * byte));
  };
  constexpr std::size_t longest = 128;
  for (std::size_t x = 0; x < row.size();) {
    if (!runLength) {
      put(row[x++]);
      continue;
    }
    const auto repeats = [&](std::size_t at) { return at + 1 < row.size() && row[at] == row[at + 1]; };
    std::size_t end = x + 1;
    const bool run = repeats(x);
    while (end < row.size() && end - x < longest && (run ? row[end] == row[x] : !repeats(end))) ++end;
    writer.U8(static_cast<std::uint32_t>(end - x - 1) + (run ? 128 : 0));
    if (run) put(row[x]);
    for (std::size_t i = x; !run && i < end; ++i) put(row[i]);
    x = end;
  }
}

template <class GetRow>
void WriteRows(ByteWriter& writer, Size size, std::size_t pixelBytes, const TgaForm& form, GetRow getRow) {
  for (int y = 0; y < size.height; ++y) {
    const auto source = getRow(form.topDown ? y : size.height - 1 - y);
    std::vector<std::uint32_t> row(source.begin(), source.end());
    if (form.rightToLeft) std::ranges::reverse(row);
    WriteRow(writer, row, pixelBytes, form.runLength);
  }
  writer.U32Le(0).U32Le(0).Text("TRUEVISION-XFILE.").U8(0);
}

}  // namespace

std::vector<std::uint8_t> EncodeTga(const Pixels& pixels, const TgaForm& form) {
  const unsigned depth = pixels.Format() == PixelFormat::Rgb ? 24 : 32;
  ByteWriter writer;
  WriteHeader(writer, {.type = 2, .size = pixels.GetSize(), .depth = depth}, form);
  WriteRows(writer, pixels.GetSize(), depth / 8, form, [&](int y) { return pixels.Row(y); });
  return writer.Take();
}

std::vector<std::uint8_t> EncodeTga(const IndexedPicture& picture, const TgaForm& form) {
  ByteWriter writer;
  const auto colours = static_cast<unsigned>(picture.palette.size());
  WriteHeader(writer, {.type = 1, .colours = colours, .size = picture.size, .depth = 8}, form);
  for (const std::uint32_t colour : picture.palette) writer.U8(colour).U8(colour >> 8).U8(colour >> 16);
  WriteRows(writer, picture.size, 1, form, [&](int y) { return picture.Row(y); });
  return writer.Take();
}

}  // namespace lumidex
