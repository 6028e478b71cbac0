#include "pictures/codecs/cut.h"

#include <algorithm>
#include <array>
#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/planes.h"

namespace lumidex {
namespace {

constexpr std::size_t headerBytes = 6;

// The colours of a PAL file; nothing when it is none, or of the kind that lists a display's own registers.
std::optional<Palette> ReadPalette(Bytes file) {
  constexpr std::size_t entriesStart = 40, entryBytes = 6, blockBytes = 512;
  if (file.size() < entriesStart || file[0] != 'A' || file[1] != 'H' || file[7] != 0) return std::nullopt;
  ByteReader reader(file);
  reader.Seek(12);
  const unsigned lastEntry = std::min<unsigned>(reader.U16Le(), 255);
  const std::array<unsigned, 3> most{reader.U16Le(), reader.U16Le(), reader.U16Le()};
  // Levels run to 255 whatever the header says, unless it says more.
  const auto component = [&reader](unsigned largest) {
    const unsigned value = reader.U16Le();
    return std::min(largest > 255 ? value * 255 / largest : value, 255U);
  };
  Palette palette = BlackPalette();
  reader.Seek(entriesStart);
  for (unsigned i = 0; i <= lastEntry && reader.Remaining() >= entryBytes; ++i) {
    // No entry lies across two blocks.
    const std::size_t leftInBlock = blockBytes - reader.Position() % blockBytes;
    if (leftInBlock < entryBytes) reader.Skip(leftInBlock);
    if (reader.Remaining() < entryBytes) break;
    const unsigned red = component(most[0]), green = component(most[1]), blue = component(most[2]);
    palette[i] = Rgb(red, green, blue);
  }
  return palette;
}

// A ramp that ends in white at the largest index there is.
Palette GreyRamp(Bytes indices) {
  const unsigned largest = indices.empty() ? 255 : std::max<unsigned>(*std::ranges::max_element(indices), 1);
  Palette palette = BlackPalette();
  for (unsigned i = 0; i <= largest; ++i) {
    const unsigned grey = (i * 255 + largest / 2) / largest;
    palette[i] = Rgb(grey, grey, grey);
  }
  return palette;
}

// One row: a count above 128 stands before a byte to repeat, one below before bytes to copy; 0 and 128 end
// the row. Returns how many pixels there were.
std::size_t UnpackRow(ByteReader packed, std::span<std::uint8_t> row) {
  const auto whole = row;
  while (!packed.AtEnd() && !row.empty()) {
    const unsigned code = packed.U8();
    const std::size_t count = std::min<std::size_t>(code & 127, row.size());
    if (count == 0 || packed.AtEnd()) break;
    if (code > 128) {
      std::ranges::fill(row.first(count), packed.U8());
      row = row.subspan(count);
    } else {
      const Bytes copied = packed.Take(count);
      std::ranges::copy(copied, row.begin());
      row = row.subspan(copied.size());
    }
  }
  return whole.size() - row.size();
}

class CutDecoder final : public FileDecoder {
 public:
  CutDecoder(const PictureData& data, const OpenOptions& options, Size size)
      : FileDecoder(data, options, size, 8, "CUT") {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> indices = ReadIndices();
    const std::optional<Palette> palette = ReadPalette(Data().paletteFile);
    Pixels pixels = UnfilledPixels();
    const std::span<std::uint32_t> all(pixels.Data(), pixels.ByteCount() / 4);
    LookUp(indices, palette ? *palette : GreyRamp(indices), all);
    std::ranges::fill(all.subspan(indices.size()), blankPixel);
    return pixels;
  }

 private:
  // The picture's indices row by row, shorter when the file is cut. What a row of its own lacks is 0.
  std::vector<std::uint8_t> ReadIndices() const {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    reader.Skip(headerBytes);
    const std::size_t width = static_cast<std::size_t>(facts_.size.width);
    std::vector<std::uint8_t> indices(width * static_cast<std::size_t>(facts_.size.height));
    for (std::size_t start = 0; start < indices.size(); start += width) {
      if (reader.AtEnd()) return Shortened(std::move(indices), start);
      const std::size_t length = reader.U16Le();
      const std::size_t done = UnpackRow(reader.Sub(length), std::span(indices).subspan(start, width));
      if (reader.WasCut()) return Shortened(std::move(indices), start + done);
    }
    return indices;
  }

  static std::vector<std::uint8_t> Shortened(std::vector<std::uint8_t> indices, std::size_t size) {
    indices.resize(size);
    return indices;
  }
};

Size ReadSize(Bytes head) {
  ByteReader reader(head);
  const int width = reader.U16Le(), height = reader.U16Le();
  return {width, height};
}

}  // namespace

// There is no signature, only a word that is always 0.
Match MatchCut(const PictureData& data) {
  const Bytes head = data.Head();
  const Size size = ReadSize(head);
  if (head.size() <= headerBytes || size.width == 0 || size.height == 0) return Match::No;
  return head[4] == 0 && head[5] == 0 ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenCut(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<CutDecoder>(data, options, ReadSize(data.Head()));
}

}  // namespace lumidex
