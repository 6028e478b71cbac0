#include "pictures/codecs/pic.h"

#include <algorithm>
#include <array>

#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

// What the bytes behind the header mean.
enum class PaletteKind : unsigned { None = 0, Cga = 1, Pcjr = 2, Ega = 3, Vga256 = 4, Vga16 = 5 };

struct Header {
  Size size;
  int bits = 0;  // of a pixel in one plane
  int planes = 0;
  PaletteKind paletteKind = PaletteKind::None;
  std::size_t paletteBytes = 0;
  std::size_t paletteStart = 0;
  bool text = false;  // a screen of characters

  int Depth() const { return bits * planes; }
  bool IsKnown() const {
    return planes == 1 ? bits == 1 || bits == 2 || bits == 4 || bits == 8 : bits == 1 && planes <= 8;
  }
  std::size_t PlaneRowBytes() const { return RowBytes(size.width, bits); }
};

constexpr std::size_t layoutOffset = 10, flagOffset = 11;

Header ReadHeader(Bytes head) {
  ByteReader reader(head);
  reader.Skip(2);
  Header header;
  header.size.width = reader.U16Le();
  header.size.height = reader.U16Le();
  reader.Seek(layoutOffset);
  const int layout = reader.U8();
  header.bits = layout & 15;
  header.planes = (layout >> 4) + 1;
  const bool marked = reader.U8() == 0xFF;
  // Only some of the early files tell of a palette.
  if (!marked && header.Depth() != 1 && header.Depth() != 4 && header.Depth() != 8) {
    header.paletteStart = flagOffset;
    return header;
  }
  const unsigned videoMode = reader.U8();
  header.text = marked && videoMode >= '0' && videoMode <= '3';
  header.paletteKind = static_cast<PaletteKind>(reader.U16Le());
  header.paletteBytes = reader.U16Le();
  header.paletteStart = reader.Position();
  return header;
}

// Six bits a component, as the registers have them; a larger value shows that the writer gave eight.
void ReadVgaEntries(ByteReader reader, int count, Palette& palette) {
  const Bytes entries = reader.Take(static_cast<std::size_t>(count) * 3);
  ByteReader all(entries);
  if (std::ranges::any_of(entries, [](std::uint8_t value) { return value > 63; })) {
    return ReadRgbEntries(all, count, palette);
  }
  for (std::size_t i = 0; all.Remaining() >= 3; ++i) {
    const unsigned red = Widen6(all.U8()), green = Widen6(all.U8()), blue = Widen6(all.U8());
    palette[i] = Rgb(red, green, blue);
  }
}

Palette DefaultPalette(int depth) {
  if (depth == 1) return TwoColours(blackPixel, whitePixel);
  if (depth > 4) return VgaPalette();
  Palette palette = BlackPalette();
  if (depth == 2) {
    std::ranges::copy(CgaColours(2, false, 0), palette.begin());
  } else {
    std::ranges::copy(ega16, palette.begin());
  }
  return palette;
}

// `reader` has the palette's bytes alone.
Palette ReadPalette(const Header& header, ByteReader reader) {
  Palette palette = DefaultPalette(header.Depth());
  switch (header.paletteKind) {
    case PaletteKind::Cga: {
      // Numbers 0 to 2 are the dull sets, 3 to 5 the bright ones; the numbering begins with the cyan set.
      constexpr std::array<int, 3> sets{1, 0, 2};
      const unsigned number = reader.U8();
      if (number < 6 && !reader.WasCut()) {
        std::ranges::copy(CgaColours(sets[number % 3], number >= 3, reader.U8()), palette.begin());
      }
      break;
    }
    case PaletteKind::Pcjr:
      for (std::size_t i = 0; i < 16 && !reader.AtEnd(); ++i) palette[i] = ega16[reader.U8() & 15U];
      break;
    case PaletteKind::Ega:
      for (std::size_t i = 0; i < 16 && !reader.AtEnd(); ++i) palette[i] = EgaRegisterColour(reader.U8());
      break;
    case PaletteKind::Vga256:
      ReadVgaEntries(reader, 256, palette);
      break;
    case PaletteKind::Vga16:
      ReadVgaEntries(reader, 16, palette);
      break;
    default:
      break;
  }
  return palette;
}

// A block of runs: any byte but the marker stands for itself; the marker stands before a count and a value,
// or before 0, a count of 16 bits and a value. Returns how many bytes it gave.
std::size_t UnpackBlock(ByteReader packed, std::uint8_t marker, std::span<std::uint8_t> into) {
  std::size_t done = 0;
  while (!packed.AtEnd() && done < into.size()) {
    const std::uint8_t code = packed.U8();
    if (code != marker) {
      into[done++] = code;
      continue;
    }
    std::size_t count = packed.U8();
    if (count == 0) count = packed.U16Le();
    if (packed.AtEnd()) break;
    count = std::min(count, into.size() - done);
    std::ranges::fill(into.subspan(done, count), packed.U8());
    done += count;
  }
  return done;
}

// The data behind the palette, at most `most` bytes of it: a number of blocks and the blocks, or 0 and the
// bytes as they are. The lengths that blocks claim to unpack to are not needed.
std::vector<std::uint8_t> ReadPlanes(ByteReader reader, std::size_t most) {
  constexpr std::size_t blockHeader = 5;
  const unsigned blocks = reader.U16Le();
  if (blocks == 0) {
    const Bytes raw = reader.Take(std::min(most, reader.Remaining()));
    return {raw.begin(), raw.end()};
  }
  std::vector<std::uint8_t> unpacked(most);
  std::size_t done = 0;
  for (unsigned i = 0; i < blocks && done < most && reader.Remaining() > blockHeader; ++i) {
    const std::size_t packedSize = reader.U16Le();
    reader.Skip(2);
    const std::uint8_t marker = reader.U8();
    const ByteReader block = reader.Sub(packedSize - std::min(packedSize, blockHeader));
    done += UnpackBlock(block, marker, std::span(unpacked).subspan(done));
  }
  unpacked.resize(done);
  return unpacked;
}

class PicDecoder final : public FileDecoder {
 public:
  PicDecoder(const PictureData& data, const OpenOptions& options, const Header& header)
      : FileDecoder(data, options, header.size, header.Depth(), "PIC"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    reader.Skip(header_.paletteStart);
    const Palette palette = ReadPalette(header_, reader.Sub(header_.paletteBytes));
    const std::size_t rowBytes = header_.PlaneRowBytes();
    const std::size_t planeBytes = rowBytes * static_cast<std::size_t>(header_.size.height);
    const std::size_t planes = static_cast<std::size_t>(header_.planes);
    const std::vector<std::uint8_t> bytes = ReadPlanes(reader, planeBytes * planes);

    Pixels pixels = UnfilledPixels();
    const PackedRows packedRows(header_.bits, palette);
    std::vector<std::uint8_t> indices(static_cast<std::size_t>(header_.size.width));
    // The lowest row comes first. In a cut file of one plane, what is missing at the top becomes blank;
    // planes that are missing altogether leave the picture in the colours of the others.
    for (int y = 0; y < header_.size.height; ++y) {
      const auto row = pixels.Row(header_.size.height - 1 - y);
      const std::size_t start = std::min(static_cast<std::size_t>(y) * rowBytes, bytes.size());
      const Bytes rest = Bytes(bytes).subspan(start);
      if (rest.size() < rowBytes) std::ranges::fill(row, blankPixel);
      if (header_.planes == 1) {
        packedRows.Unpack(rest.first(std::min(rowBytes, rest.size())), row);
      } else if (!rest.empty()) {
        JoinPlanes(rest, planeBytes, header_.planes, indices);
        LookUp(indices, palette, row);
      }
    }
    return pixels;
  }

 private:
  Header header_;
};

}  // namespace

Match MatchPic(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() <= flagOffset || head[0] != 0x34 || head[1] != 0x12) return Match::No;
  if (!ReadHeader(head).IsKnown()) return Match::Maybe;
  return head[flagOffset] == 0xFF ? Match::Sure : Match::Maybe;
}

std::unique_ptr<Decoder> OpenPic(const PictureData& data, const OpenOptions& options) {
  const Header header = ReadHeader(data.Head());
  if (header.text) Refuse("PIC: text screens are not supported");
  if (!header.IsKnown()) {
    Refuse("PIC: this arrangement of planes is not supported");
  }
  return std::make_unique<PicDecoder>(data, options, header);
}

}  // namespace lumidex
