#include "pictures/codecs/msp.h"

#include <algorithm>

#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/planes.h"

namespace lumidex {
namespace {

constexpr std::size_t headerBytes = 32;

bool HasMagic(Bytes head, std::string_view magic) {
  return head.size() >= magic.size() &&
         std::ranges::equal(head.first(magic.size()), magic, {}, {}, [](char c) { return std::uint8_t(c); });
}

bool IsPacked(Bytes head) {
  return HasMagic(head, "LinS");
}

// One packed row: 0, count, value is a run; any other count stands before bytes to copy. What the row lacks
// stays as it is.
void UnpackRow(ByteReader packed, std::span<std::uint8_t> row) {
  while (!packed.AtEnd() && !row.empty()) {
    const std::size_t code = packed.U8();
    if (code == 0) {
      const std::size_t count = std::min<std::size_t>(packed.U8(), row.size());
      if (packed.AtEnd()) return;
      std::ranges::fill(row.first(count), packed.U8());
      row = row.subspan(count);
    } else {
      const Bytes copied = packed.Take(std::min(code, row.size()));
      std::ranges::copy(copied, row.begin());
      row = row.subspan(copied.size());
    }
  }
}

class MspDecoder final : public FileDecoder {
 public:
  MspDecoder(const PictureData& data, const OpenOptions& options, Size size)
      : FileDecoder(data, options, size, 1, "MSP") {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    reader.Skip(headerBytes);
    Pixels pixels = UnfilledPixels();
    const PackedRows rows(1, TwoColours(blackPixel, whitePixel));
    if (IsPacked(file)) {
      DecodePacked(reader, rows, pixels);
    } else {
      UnpackRows(reader.Take(reader.Remaining()), RowBytes(pixels.Width(), 1), rows, pixels);
    }
    return pixels;
  }

 private:
  // The packed lengths of all rows come first; length 0 is a white row.
  static void DecodePacked(ByteReader reader, const PackedRows& rows, Pixels& pixels) {
    const std::size_t rowBytes = RowBytes(pixels.Width(), 1);
    ByteReader lengths = reader.Sub(static_cast<std::size_t>(pixels.Height()) * 2);
    std::vector<std::uint8_t> row(rowBytes);
    for (int y = 0; y < pixels.Height(); ++y) {
      const std::size_t length = lengths.U16Le();
      if (lengths.WasCut()) return BlankFrom(pixels, y);
      std::ranges::fill(row, std::uint8_t{0xFF});
      UnpackRow(reader.Sub(length), row);
      rows.Unpack(row, pixels.Row(y));
    }
  }
};

}  // namespace

Match MatchMsp(const PictureData& data) {
  const bool known = HasMagic(data.Head(), "DanM") || IsPacked(data.Head());
  return known && data.Head().size() >= headerBytes ? Match::Sure : Match::No;
}

// The header's checksum is left alone: files with a wrong one are about, and their pictures are good.
std::unique_ptr<Decoder> OpenMsp(const PictureData& data, const OpenOptions& options) {
  ByteReader reader(data.Head());
  reader.Skip(4);
  const int width = reader.U16Le(), height = reader.U16Le();
  return std::make_unique<MspDecoder>(data, options, Size{width, height});
}

}  // namespace lumidex
