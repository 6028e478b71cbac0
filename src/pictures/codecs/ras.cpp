// Follows the manual page rasterfile(5) of SunOS.
#include "pictures/codecs/ras.h"

#include <algorithm>
#include <array>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/byte_stream.h"
#include "pictures/codecs/run_rows.h"
#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t headerSize = 32;
constexpr std::uint32_t signature = 0x59A66A95;
constexpr std::uint8_t escape = 0x80;

enum Type : std::uint32_t { Old = 0, Standard = 1, RunLength = 2, RedFirst = 3 };

struct Header {
  Size size;
  int depth = 0;
  std::uint32_t type = 0;
  bool hasMap = false;  // all reds, then all greens, then all blues
  std::size_t mapBytes = 0;
};

// The stored length of the pixels is not looked at: files of type 0 have none and others lie.
Header ReadHeader(Bytes head) {
  // Far beyond what any of these may be, yet small enough to calculate with.
  constexpr std::uint32_t most = 1 << 20;
  const auto bounded = [most](std::uint32_t value) { return static_cast<int>(std::min(value, most)); };
  ByteReader reader(head);
  Header header;
  reader.Skip(4);
  header.size.width = bounded(reader.U32Be());
  header.size.height = bounded(reader.U32Be());
  header.depth = bounded(reader.U32Be());
  reader.Skip(4);
  header.type = reader.U32Be();
  const std::uint32_t mapType = reader.U32Be();
  header.mapBytes = reader.U32Be();
  constexpr std::uint32_t untold = 0, equalParts = 1, mostMapBytes = 3 * 256;
  // Some writers count a map but do not say of which kind it is.
  const bool looksLikeMap = header.mapBytes % 3 == 0 && header.mapBytes <= mostMapBytes;
  header.hasMap = mapType == equalParts || (mapType == untold && looksLikeMap);
  return header;
}

// The escape byte, the count less one and the value; a count of 0 means the escape byte itself.
struct RasCode {
  static constexpr std::size_t longest = 3;
  static bool IsLiteral(std::uint8_t byte) { return byte != escape; }
  static CodedRun Read(Bytes code) {
    if (code.size() >= 2 && code[1] == 0) return {2, 1, escape};
    if (code.size() < longest) return {};
    return {longest, code[1] + std::size_t{1}, code[2]};
  }
};

using RasRows = RunRows<RasCode>;

class RasDecoder final : public FileDecoder {
 public:
  RasDecoder(const PictureData& data, const Header& header, const OpenOptions& options)
      : FileDecoder(data, options, header.size, header.depth, "RAS"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = UnfilledPixels();
    const Palette palette = ReadPalette(Data().Stretch(headerSize, header_.hasMap ? header_.mapBytes : 0));
    RasRows rows(ByteStream(Data(), headerSize + header_.mapBytes), header_.type == RunLength);
    BlankFrom(pixels, DecodeRows(rows, palette, pixels));
    return pixels;
  }

 private:
  Palette ReadPalette(Bytes map) const {
    if (header_.hasMap && map.size() >= 3) {
      Palette palette = BlackPalette();
      const std::size_t count = map.size() / 3;
      for (std::size_t i = 0; i < std::min<std::size_t>(count, 256); ++i)
        palette[i] = Rgb(map[i], map[count + i], map[2 * count + i]);
      return palette;
    }
    if (header_.depth == 8) return GreyPalette();
    if (header_.depth == 1) return TwoColours(whitePixel, blackPixel);
    Palette palette = BlackPalette();
    for (unsigned i = 0; i < 16; ++i) palette[i] = Rgb(17 * i, 17 * i, 17 * i);
    return palette;
  }

  // Returns how many rows were whole.
  int DecodeRows(RasRows& rows, const Palette& palette, Pixels& pixels) const {
    const std::size_t needed = RowBytes(facts_.size.width, header_.depth);
    std::vector<std::uint8_t> room((needed + 1) / 2 * 2);
    const PackedRows unpacker(std::min(header_.depth, 8), palette);
    for (int y = 0; y < facts_.size.height; ++y) {
      // The very last byte of padding is often missing.
      const Bytes row = rows.Next(room);
      if (row.size() < needed) return y;
      if (header_.depth <= 8) {
        unpacker.Unpack(row, pixels.Row(y));
      } else {
        JoinComponents(row, pixels.Row(y));
      }
    }
    return facts_.size.height;
  }

  // 24 bits: blue, green, red; 32 bits: an unused byte before them; type 3 has red first.
  void JoinComponents(Bytes row, std::span<std::uint32_t> target) const {
    const std::uint8_t* from = row.data() + (header_.depth == 32 ? 1 : 0);
    const std::size_t step = header_.depth == 32 ? 4 : 3;
    if (header_.type == RedFirst) {
      for (auto& pixel : target) pixel = Rgb(from[0], from[1], from[2]), from += step;
    } else {
      for (auto& pixel : target) pixel = Rgb(from[2], from[1], from[0]), from += step;
    }
  }

  Header header_;
};

}  // namespace

Match MatchRas(const PictureData& data) {
  return ByteReader(data.Head()).U32Be() == signature ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenRas(const PictureData& data, const OpenOptions& options) {
  if (data.Size() < headerSize) Refuse("RAS: the header is cut short");
  const Header header = ReadHeader(data.Head());
  if (header.type > RedFirst) Refuse("RAS: this type of coding is not supported");
  constexpr std::array<int, 5> depths = {1, 4, 8, 24, 32};
  if (std::ranges::find(depths, header.depth) == depths.end()) Refuse("RAS: this depth does not occur");
  if (header.mapBytes > data.Size()) Refuse("RAS: the colour map is longer than the file");
  return std::make_unique<RasDecoder>(data, header, options);
}

}  // namespace lumidex
