#include "gallery/encoders/art_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeArt(const IndexedPicture& picture, ArtKind kind) {
  const std::uint32_t width = static_cast<std::uint32_t>(picture.size.width);
  const std::uint32_t height = static_cast<std::uint32_t>(picture.size.height);
  ByteWriter rows;
  for (int y = 0; y < picture.size.height; ++y) rows.Append(PackRow(picture.Row(y), 1)).PadTo(2);
  ByteWriter file;
  if (kind == ArtKind::Print) {
    file.U16Le(0xFFFF).U16Le(300).U16Le(300).U16Le(width).U16Le(height).U16Le(1);
    return file.Append(EncodePackBits(rows.Take())).Take();
  }
  return file.U16Le(0).U16Le(width).U16Le(0).U16Le(height).Append(rows.Take()).Take();
}

}  // namespace lumidex
