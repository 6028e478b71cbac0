// Follows the PCX technical reference manual of 1991.
#include "pictures/codecs/pcx.h"

#include <algorithm>
#include <array>
#include <vector>

#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/byte_stream.h"
#include "pictures/codecs/run_rows.h"
#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t headerSize = 128;
constexpr std::size_t trailerSize = 1 + 768;
constexpr std::uint8_t trailerMark = 0x0C;

struct Header {
  unsigned version = 0;
  unsigned encoding = 0;  // 0 plain, 1 run-length
  int bits = 0;           // of a pixel in one plane
  int planes = 0;
  Size size;
  std::size_t planeBytes = 0;  // of a row in one plane
  bool grey = false;
  Bytes colours;  // 48 bytes

  int Depth() const { return bits * planes; }
};

Header ReadHeader(Bytes head) {
  ByteReader reader(head);
  Header header;
  reader.Skip(1);
  header.version = reader.U8();
  header.encoding = reader.U8();
  header.bits = reader.U8();
  const int left = reader.U16Le(), top = reader.U16Le();
  header.size.width = reader.U16Le() - left + 1;
  header.size.height = reader.U16Le() - top + 1;
  reader.Skip(4);
  header.colours = reader.Take(48);
  reader.Skip(1);
  header.planes = reader.U8();
  header.planeBytes = reader.U16Le();
  header.grey = reader.U16Le() == 2;
  return header;
}

bool IsKnownForm(const Header& header) {
  switch (header.bits) {
    case 1:
      return header.planes >= 1 && header.planes <= 4;
    case 2:
    case 4:
      return header.planes == 1;
    case 8:
      return header.planes == 1 || header.planes == 3 || header.planes == 4;
    default:
      return false;
  }
}

// The two highest bits mark a count, the value follows. The manual ends each run with its row; many writers
// do not.
struct PcxCode {
  static constexpr std::size_t longest = 2;
  static bool IsLiteral(std::uint8_t byte) { return byte < 0xC0; }
  static CodedRun Read(Bytes code) {
    if (code.size() < longest) return {};
    return {longest, code[0] & std::size_t{0x3F}, code[1]};
  }
};

using PcxRows = RunRows<PcxCode>;

// CGA pictures store adapter settings, not colours. Up to version 4 the settings stand in bits of their own;
// PC Paintbrush IV tells the set of colours by the look of the header's second entry instead.
std::array<std::uint32_t, 4> CgaColoursOf(const Header& header) {
  const int background = header.colours[0] >> 4;
  if (header.version < 5) {
    const unsigned settings = header.colours[3];
    const int set = (settings & 0x80) != 0 ? 2 : (settings & 0x40) != 0 ? 1 : 0;
    return CgaColours(set, (settings & 0x20) != 0, background);
  }
  const unsigned green = header.colours[4], blue = header.colours[5];
  return CgaColours(green > blue ? 0 : 1, std::max(green, blue) > 200, background);
}

// Newer writers put the four colours themselves there; adapter settings leave the third and the fourth empty.
bool HasFourColours(const Header& header) {
  return header.version >= 5 && std::ranges::any_of(std::span(header.colours).subspan(6, 6),
                                                    [](std::uint8_t byte) { return byte != 0; });
}

Palette HeaderPalette(const Header& header) {
  Palette palette = BlackPalette();
  ByteReader reader(header.colours);
  ReadRgbEntries(reader, 16, palette);
  return palette;
}

// The colours of pictures of up to 4 bits. Versions 0 and 3 have none of their own: what stands in the
// header there is whatever was in memory.
Palette SmallPalette(const Header& header) {
  if (header.Depth() == 1) return TwoColours(blackPixel, whitePixel);
  Palette palette = BlackPalette();
  if (header.bits == 2 && !HasFourColours(header)) {
    std::ranges::copy(CgaColoursOf(header), palette.begin());
    return palette;
  }
  const bool unset = std::ranges::all_of(header.colours, [&](std::uint8_t byte) { return byte == 0; });
  if (header.version == 0 || header.version == 3 || unset) {
    std::ranges::copy(ega16, palette.begin());
    return palette;
  }
  return HeaderPalette(header);
}

class PcxDecoder final : public FileDecoder {
 public:
  PcxDecoder(const PictureData& data, const Header& header, const OpenOptions& options)
      : FileDecoder(data, options, header.size, header.Depth(), "PCX"), header_(ReadHeader(Data().Head())) {
    const std::size_t needed = RowBytes(header_.size.width, header_.bits);
    planeBytes_ = std::max(needed, header_.planeBytes);
  }

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = UnfilledPixels();
    const Palette palette = header_.Depth() == 8 ? LargePalette() : SmallPalette(header_);
    const int rows = DecodeRows(palette, pixels);
    if (header_.Depth() == 32) {
      SettleAlpha(pixels, rows);
    } else {
      BlankFrom(pixels, rows);
    }
    return pixels;
  }

 private:
  // The colours behind the rows have a mark before them. In a file that is cut it may be a pixel.
  bool HasTrailer() const {
    if (header_.Depth() != 8 || Data().Size() < headerSize + trailerSize) return false;
    const std::vector<std::uint8_t> mark = Data().Stretch(Data().Size() - trailerSize, 1);
    return !mark.empty() && mark.front() == trailerMark;
  }

  PcxRows Rows() const { return PcxRows(ByteStream(Data(), headerSize), header_.encoding != 0); }

  // The 256 colours stand behind the rows; where their mark is missing but there is room for them, the last
  // 768 bytes are taken.
  Palette LargePalette() const {
    Palette palette = GreyPalette();
    constexpr std::size_t colourBytes = trailerSize - 1;
    if (!HasTrailer()) {
      if (header_.grey) return palette;
      const RowsSummary rows = LookThroughRows();
      // Something may stand behind the colours, as the notes that archives of the time added.
      const std::vector<std::uint8_t> marked = Data().Stretch(rows.end, trailerSize);
      if (marked.size() == trailerSize && marked.front() == trailerMark) {
        ByteReader reader(Bytes(marked).subspan(1));
        ReadRgbEntries(reader, 256, palette);
        return palette;
      }
      if (rows.end + colourBytes > Data().Size()) {
        const bool hasColours =
            std::ranges::any_of(header_.colours, [](std::uint8_t byte) { return byte != 0; });
        return hasColours && rows.highestIndex < 16 ? HeaderPalette(header_) : palette;
      }
    }
    const std::vector<std::uint8_t> colours = Data().Stretch(Data().Size() - colourBytes, colourBytes);
    ByteReader reader(colours);
    ReadRgbEntries(reader, 256, palette);
    return palette;
  }

  struct RowsSummary {
    std::uint64_t end = 0;  // in the file
    std::uint8_t highestIndex = 0;
  };

  RowsSummary LookThroughRows() const {
    PcxRows rows = Rows();
    std::vector<std::uint8_t> room(planeBytes_);
    RowsSummary summary;
    for (int y = 0; y < facts_.size.height; ++y) {
      const Bytes row = rows.Next(room);
      if (row.size() < room.size()) break;
      const Bytes indices = row.first(static_cast<std::size_t>(facts_.size.width));
      summary.highestIndex = std::max(summary.highestIndex, std::ranges::max(indices));
    }
    summary.end = rows.Position();
    return summary;
  }

  // Returns how many rows were whole.
  int DecodeRows(const Palette& palette, Pixels& pixels) const {
    PcxRows rows = Rows();
    std::vector<std::uint8_t> room(planeBytes_ * static_cast<std::size_t>(header_.planes));
    std::vector<std::uint8_t> indices(static_cast<std::size_t>(facts_.size.width));
    const PackedRows unpacker(header_.bits, palette);
    const std::uint64_t trailer = Data().Size() - (HasTrailer() ? trailerSize : 0);
    // The last row may lack its padding.
    const std::size_t needed = room.size() - planeBytes_ + RowBytes(facts_.size.width, header_.bits);
    for (int y = 0; y < facts_.size.height; ++y) {
      if (rows.Position() == trailer) return y;
      const Bytes row = rows.Next(room);
      if (row.size() < needed) return y;
      const auto target = pixels.Row(y);
      if (header_.planes == 1) {
        unpacker.Unpack(row, target);
      } else if (header_.bits == 1) {
        JoinPlanes(row, planeBytes_, header_.planes, indices);
        LookUp(indices, palette, target);
      } else {
        JoinChannels(row, target);
      }
    }
    return facts_.size.height;
  }

  // Red, green, blue and, in a fourth plane, alpha.
  void JoinChannels(Bytes row, std::span<std::uint32_t> target) const {
    const std::uint8_t* red = row.data();
    const std::uint8_t* green = red + planeBytes_;
    const std::uint8_t* blue = green + planeBytes_;
    if (header_.planes == 3) {
      for (std::size_t x = 0; x < target.size(); ++x) target[x] = Rgb(red[x], green[x], blue[x]);
      return;
    }
    const std::uint8_t* alpha = blue + planeBytes_;
    for (std::size_t x = 0; x < target.size(); ++x)
      target[x] = (Rgb(red[x], green[x], blue[x]) & 0xFFFFFF) | std::uint32_t{alpha[x]} << 24;
  }

  Header header_;
  std::size_t planeBytes_ = 0;
};

}  // namespace

Match MatchPcx(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() < headerSize || head[0] != 0x0A) return Match::No;
  const Header header = ReadHeader(head);
  const bool fits = header.version <= 5 && header.encoding <= 1 && IsKnownForm(header);
  return fits ? Match::Sure : Match::Maybe;
}

std::unique_ptr<Decoder> OpenPcx(const PictureData& data, const OpenOptions& options) {
  const Header header = ReadHeader(data.Head());
  if (header.encoding > 1) Refuse("PCX: unknown encoding");
  if (!IsKnownForm(header)) Refuse("PCX: this combination of bits and planes is not supported");
  return std::make_unique<PcxDecoder>(data, header, options);
}

}  // namespace lumidex
