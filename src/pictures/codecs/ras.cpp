// Follows the manual page rasterfile(5) of SunOS.
#include "pictures/codecs/ras.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/run_time_error.h"
#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"

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
  header.hasMap = reader.U32Be() == 1;
  header.mapBytes = reader.U32Be();
  return header;
}

// Gives the unpacked bytes piece by piece: runs take no notice of rows.
class RunReader {
 public:
  RunReader(ByteReader from, bool packed) : from_(from), packed_(packed) {}

  // Fills `into` and returns how many bytes there were: fewer than asked only at the end of the input.
  std::size_t Read(std::span<std::uint8_t> into) {
    if (!packed_) {
      const Bytes bytes = from_.Take(into.size());
      std::ranges::copy(bytes, into.begin());
      return bytes.size();
    }
    ByteReader from = from_;  // a copy of its own stays in registers
    std::size_t done = 0;
    while (done < into.size()) {
      if (left_ == 0) {
        if (from.AtEnd()) break;
        const std::uint8_t code = from.U8();
        if (code != escape) {
          into[done++] = code;
          continue;
        }
        if (from.AtEnd()) break;
        const unsigned count = from.U8();
        if (count == 0) {
          into[done++] = escape;
          continue;
        }
        if (from.AtEnd()) break;
        left_ = count + 1;
        value_ = from.U8();
      }
      const std::size_t count = std::min(left_, into.size() - done);
      std::fill_n(&into[done], count, value_);
      done += count;
      left_ -= count;
    }
    from_ = from;
    return done;
  }

 private:
  ByteReader from_;
  bool packed_;
  std::size_t left_ = 0;  // bytes the current run still gives
  std::uint8_t value_ = 0;
};

class RasDecoder final : public FileDecoder {
 public:
  RasDecoder(const PictureData& data, const Header& header, const OpenOptions& options)
      : FileDecoder(data, options, header.size, header.depth, "RAS"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    Pixels pixels = UnfilledPixels();
    ByteReader reader(file);
    reader.Seek(headerSize);
    const Palette palette = ReadPalette(reader.Take(header_.mapBytes));
    RunReader runs(reader, header_.type == RunLength);
    BlankFrom(pixels, DecodeRows(runs, palette, pixels));
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
  int DecodeRows(RunReader& runs, const Palette& palette, Pixels& pixels) const {
    const std::size_t needed = RowBytes(facts_.size.width, header_.depth);
    std::vector<std::uint8_t> row((needed + 1) / 2 * 2);
    const PackedRows unpacker(std::min(header_.depth, 8), palette);
    for (int y = 0; y < facts_.size.height; ++y) {
      // The very last byte of padding is often missing.
      if (runs.Read(row) < needed) return y;
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

[[noreturn]] void Refuse(const char* reason) {
  throw RunTimeError(ErrorNumber::InvalidPicture, reason);
}

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
