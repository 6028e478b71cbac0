#pragma once
// IFF files put together chunk by chunk.

#include <string_view>
#include <vector>

#include "pictures/palettes.h"
#include "pictures/support/byte_writer.h"

namespace lumidex::iff {

inline ByteWriter Chunk(std::string_view id, const ByteWriter& content) {
  ByteWriter chunk;
  chunk.Text(id).U32Be(static_cast<std::uint32_t>(content.Size())).Add(content.Bytes());
  return chunk.PadTo(2);
}

inline ByteWriter Bytes(std::initializer_list<std::uint32_t> values) {
  return ByteWriter().Add(values);
}

inline ByteWriter Group(std::string_view id, std::string_view type, const std::vector<ByteWriter>& chunks) {
  ByteWriter content;
  content.Text(type);
  for (const ByteWriter& chunk : chunks) content.Add(chunk.Bytes());
  return Chunk(id, content);
}

struct Header {
  unsigned width = 2, height = 1, planes = 2, masking = 0, compression = 0, transparent = 0;
};

inline ByteWriter BitmapHeader(const Header& header) {
  ByteWriter content;
  content.U16Be(header.width).U16Be(header.height).U32Be(0).U8(header.planes).U8(header.masking);
  content.U8(header.compression).U8(0).U16Be(header.transparent).U8(1).U8(1).U16Be(320).U16Be(200);
  return Chunk("BMHD", content);
}

inline ByteWriter Colours(unsigned count) {
  ByteWriter content;
  for (unsigned i = 0; i < count; ++i) content.Add({i, 2 * i, 255 - i});
  return Chunk("CMAP", content);
}

inline std::uint32_t Colour(unsigned i) {
  return blackPixel | i << 16 | (2 * i) << 8 | (255 - i);
}

inline ByteWriter DisplayMode(std::uint32_t mode) {
  return Chunk("CAMG", ByteWriter().U32Be(mode));
}

inline std::vector<std::uint32_t> WordsIn(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes()));
}

inline int DepthIn(const ByteWriter& file) {
  return OpenBytes(file.Bytes())->Facts().bitsPerPixel;
}

// One pixel whose code is `code`, in interleaved planes.
inline ByteWriter OnePixel(unsigned code, unsigned planes) {
  ByteWriter content;
  for (unsigned plane = 0; plane < planes; ++plane) content.U8((code >> plane & 1) << 7).U8(0);
  return Chunk("BODY", content);
}

}  // namespace lumidex::iff
