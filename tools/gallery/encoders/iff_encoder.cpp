#include "gallery/encoders/iff_encoder.h"

#include <array>
#include <cstdlib>
#include <limits>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

void WriteChunk(ByteWriter& writer, std::string_view id, const ByteWriter& content) {
  writer.Text(id).U32Be(static_cast<std::uint32_t>(content.Size())).Append(content.Bytes());
  if (content.Size() % 2 != 0) writer.U8(0);
}

struct Parts {
  std::string_view type = "ILBM";
  Size size;
  int planes = 0;
  IffForm form = IffForm::Packed;
  std::uint32_t compression = 1;  // of packed forms
  Colours colours;
  std::uint32_t displayMode = 0;
  ByteWriter body;
};

std::vector<std::uint8_t> Encode(const Parts& parts) {
  const auto width = static_cast<std::uint32_t>(parts.size.width);
  const auto height = static_cast<std::uint32_t>(parts.size.height);
  ByteWriter header;
  header.U16Be(width).U16Be(height).U32Be(0).U8(static_cast<std::uint32_t>(parts.planes)).U8(0);
  header.U8(parts.form == IffForm::Packed ? parts.compression : 0)
      .U8(0)
      .U16Be(0)
      .U8(1)
      .U8(1)
      .U16Be(width)
      .U16Be(height);
  ByteWriter chunks;
  chunks.Text(parts.type);
  WriteChunk(chunks, "BMHD", header);
  if (!parts.colours.empty()) {
    ByteWriter map;
    for (const std::uint32_t colour : parts.colours) map.U8(colour >> 16).U8(colour >> 8).U8(colour);
    WriteChunk(chunks, "CMAP", map);
  }
  if (parts.displayMode != 0) {
    ByteWriter mode;
    mode.U32Be(parts.displayMode);
    WriteChunk(chunks, "CAMG", mode);
  }
  WriteChunk(chunks, "BODY", parts.body);
  ByteWriter file;
  WriteChunk(file, "FORM", chunks);
  return file.Take();
}

void WriteRow(ByteWriter& body, std::span<const std::uint8_t> row, IffForm form) {
  if (form == IffForm::Packed) {
    body.Append(EncodePackBits(row));
  } else {
    body.Append(row);
  }
}

void WritePlanes(ByteWriter& body, std::span<const std::uint8_t> codes, int planes, IffForm form) {
  const std::size_t stride = (codes.size() + 15) / 16 * 2;
  for (int plane = 0; plane < planes; ++plane) {
    std::vector<std::uint8_t> row = PackPlane(codes, plane);
    row.resize(stride);
    WriteRow(body, row, form);
  }
}

// Calls put(colour, count) for each stretch of one colour, at most `longest` of it at once.
template <class Put>
void ForEachRun(const Pixels& pixels, std::size_t longest, Put put) {
  for (int y = 0; y < pixels.Height(); ++y) {
    const auto row = pixels.Row(y);
    for (std::size_t x = 0; x < row.size();) {
      std::size_t end = x + 1;
      while (end < row.size() && end - x < longest && row[end] == row[x]) ++end;
      put(row[x], end - x);
      x = end;
    }
  }
}

int Component(std::uint32_t colour, int shift) {
  return static_cast<int>(colour >> shift & 255);
}

int Distance(std::uint32_t one, std::uint32_t other) {
  int sum = 0;
  for (const int shift : {0, 8, 16}) {
    const int difference = Component(one, shift) - Component(other, shift);
    sum += difference * difference;
  }
  return sum;
}

}  // namespace

std::vector<std::uint8_t> EncodeIlbm(const IndexedPicture& picture, IffForm form) {
  Parts parts{.size = picture.size, .planes = 1, .form = form, .colours = picture.palette, .body = {}};
  while (picture.palette.size() > std::size_t{1} << parts.planes) ++parts.planes;
  for (int y = 0; y < picture.size.height; ++y) WritePlanes(parts.body, picture.Row(y), parts.planes, form);
  return Encode(parts);
}

std::vector<std::uint8_t> EncodeIlbm(const Pixels& pixels, IffForm form) {
  const int planes = pixels.Format() == PixelFormat::Rgb ? 24 : 32;
  Parts parts{.size = pixels.GetSize(), .planes = planes, .form = form, .colours = {}, .body = {}};
  std::vector<std::uint8_t> component(static_cast<std::size_t>(pixels.Width()));
  for (int y = 0; y < pixels.Height(); ++y) {
    for (const int shift : {16, 8, 0, 24}) {
      if (shift == 24 && planes == 24) continue;
      for (std::size_t x = 0; x < component.size(); ++x)
        component[x] = static_cast<std::uint8_t>(pixels.Row(y)[x] >> shift);
      WritePlanes(parts.body, component, 8, form);
    }
  }
  return Encode(parts);
}

std::vector<std::uint8_t> EncodeHoldAndModify(const Pixels& pixels, const Colours& base) {
  constexpr std::uint32_t holdAndModify = 0x800;
  Parts parts{
      .size = pixels.GetSize(), .planes = 6, .colours = base, .displayMode = holdAndModify, .body = {}};
  std::vector<std::uint8_t> codes(static_cast<std::size_t>(pixels.Width()));
  for (int y = 0; y < pixels.Height(); ++y) {
    std::uint32_t left = base.front();
    for (std::size_t x = 0; x < codes.size(); ++x) {
      const std::uint32_t wanted = pixels.Row(y)[x];
      int best = std::numeric_limits<int>::max();
      std::uint32_t chosen = left;
      const auto offer = [&](std::uint32_t colour, unsigned code) {
        if (const int distance = Distance(colour, wanted); distance < best) {
          best = distance;
          chosen = colour;
          codes[x] = static_cast<std::uint8_t>(code);
        }
      };
      for (unsigned i = 0; i < base.size() && i < 16; ++i) offer(base[i], i);
      constexpr std::array<int, 3> shifts = {0, 16, 8};  // the codes 1, 2, 3 change blue, red, green
      for (unsigned i = 0; i < shifts.size(); ++i) {
        const auto value = static_cast<unsigned>((Component(wanted, shifts[i]) + 8) / 17);
        const std::uint32_t kept = left & ~(0xFFU << shifts[i]);
        offer(kept | (value * 17) << shifts[i], (i + 1) << 4 | value);
      }
      left = chosen;
    }
    WritePlanes(parts.body, codes, 6, parts.form);
  }
  return Encode(parts);
}

std::vector<std::uint8_t> EncodeColourRuns(const Pixels& pixels) {
  constexpr std::size_t longest = 127;
  Parts parts{
      .type = "RGB8", .size = pixels.GetSize(), .planes = 25, .compression = 4, .colours = {}, .body = {}};
  ForEachRun(pixels, longest, [&](std::uint32_t colour, std::size_t count) {
    parts.body.U32Be(colour << 8 | static_cast<std::uint32_t>(count));
  });
  return Encode(parts);
}

std::vector<std::uint8_t> EncodeDeep(const Pixels& pixels, IffForm form) {
  constexpr std::size_t longest = 128;
  const bool packed = form == IffForm::Packed;
  const std::uint32_t elements = pixels.Format() == PixelFormat::Rgb ? 3 : 4;
  const auto width = static_cast<std::uint32_t>(pixels.Width());
  const auto height = static_cast<std::uint32_t>(pixels.Height());
  ByteWriter screen, pixel, place, body;
  screen.U16Be(width).U16Be(height).U16Be(packed ? 1 : 0).U8(1).U8(1);
  pixel.U32Be(elements);
  for (std::uint32_t kind = 1; kind <= elements; ++kind)
    pixel.U16Be(kind).U16Be(8);  // red, green, blue, alpha
  place.U16Be(width).U16Be(height).U32Be(0);
  ForEachRun(pixels, packed ? longest : 1, [&](std::uint32_t colour, std::size_t count) {
    if (packed) body.U8(count == 1 ? 0 : 257 - static_cast<std::uint32_t>(count));
    body.U8(colour >> 16).U8(colour >> 8).U8(colour);
    if (elements == 4) body.U8(colour >> 24);
  });
  ByteWriter chunks;
  chunks.Text("DEEP");
  WriteChunk(chunks, "DGBL", screen);
  WriteChunk(chunks, "DPEL", pixel);
  WriteChunk(chunks, "DLOC", place);
  WriteChunk(chunks, "DBOD", body);
  ByteWriter file;
  WriteChunk(file, "FORM", chunks);
  return file.Take();
}

std::vector<std::uint8_t> EncodeLbm(const IndexedPicture& picture, IffForm form) {
  Parts parts{.type = "PBM ",
              .size = picture.size,
              .planes = 8,
              .form = form,
              .colours = picture.palette,
              .body = {}};
  for (int y = 0; y < picture.size.height; ++y) {
    std::vector<std::uint8_t> row(picture.Row(y).begin(), picture.Row(y).end());
    if (row.size() % 2 != 0) row.push_back(0);
    WriteRow(parts.body, row, form);
  }
  return Encode(parts);
}

}  // namespace lumidex
