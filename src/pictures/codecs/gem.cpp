#include "pictures/codecs/gem.h"

#include <algorithm>
#include <array>

#include "pictures/byte_reader.h"
#include "pictures/codecs/gem_colours.h"
#include "pictures/file_decoder.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t plainHeaderBytes = 16;

struct Header {
  unsigned version = 0;
  std::size_t bytes = 0;  // of the header
  int planes = 0;
  std::size_t patternBytes = 0;
  Size size;
  // 24 bits a pixel, blue first, where every count is of pixels.
  bool countsPixels = false;

  bool IsTrueColour() const { return planes > 8; }
  // How many lines of how many bytes a row is coded in.
  std::size_t Lines() const { return IsTrueColour() ? 1 : static_cast<std::size_t>(planes); }
  std::size_t LineBytes() const {
    return IsTrueColour() ? static_cast<std::size_t>(size.width) * BytesPerPixel() : RowBytes(size.width, 1);
  }
  std::size_t BytesPerPixel() const { return static_cast<std::size_t>(planes + 7) / 8; }
};

Header ReadHeader(Bytes head) {
  ByteReader reader(head);
  Header header;
  header.version = reader.U16Be();
  header.bytes = std::size_t{2} * reader.U16Be();
  header.planes = reader.U16Be();
  header.patternBytes = reader.U16Be();
  reader.Skip(4);  // the size of a dot
  header.size.width = reader.U16Be();
  header.size.height = reader.U16Be();
  if (header.bytes == 18 && reader.U16Be() == 3) {
    header.planes = 24;
    header.countsPixels = true;
  }
  return header;
}

bool IsDrawing(const Header& header) {
  return header.version == 0xFFFF;
}

bool IsKnown(const Header& header) {
  const bool known = (header.planes >= 1 && header.planes <= 8) || header.planes == 15 ||
                     header.planes == 16 || header.planes == 24 || header.planes == 32;
  return known && header.version <= 3 && header.bytes >= plainHeaderBytes && header.size.width > 0 &&
         header.size.height > 0;
}

// Reads the lines of a picture one after the other.
class Lines {
 public:
  Lines(ByteReader reader, const Header& header)
      : reader_(reader), patternBytes_(header.patternBytes), unit_(header.countsPixels ? 3 : 1) {}

  bool AtEnd() const { return reader_.AtEnd(); }

  // How many times the row that follows is shown; asked at the start of a row.
  int Repeats() {
    ByteReader ahead = reader_;
    if (ahead.U8() != 0 || ahead.U8() != 0 || ahead.U8() != 0xFF || ahead.AtEnd()) return 1;
    const int count = ahead.U8();
    reader_ = ahead;
    return count == 0 ? 256 : count;
  }

  // Fills a line; what it skips stays as it is. Runs are cut at the end of the line, as some writers let them
  // go a few bytes beyond. Returns how many bytes there were before the input ended.
  std::size_t Read(std::span<std::uint8_t> line) {
    std::size_t done = 0;
    while (done < line.size() && !reader_.AtEnd()) done += ReadRun(line.subspan(done));
    return done;
  }

 private:
  std::size_t ReadRun(std::span<std::uint8_t> into) {
    const unsigned code = reader_.U8();
    if (reader_.AtEnd() && (code == 0 || code == 0x80)) return 0;
    if (code == 0) {
      const std::size_t count = reader_.U8();
      if (count != 0) return Repeat(reader_.Take(patternBytes_), count, into);
      const std::size_t skipped = reader_.U8();
      // Where the file is cut in the mark that repeats a row, nothing is skipped.
      return skipped == 0xFF && reader_.AtEnd() ? 0 : std::min((skipped + 1) * unit_, into.size());
    }
    if (code == 0x80) {
      const std::size_t count = reader_.U8();
      const Bytes stored = reader_.Take((count == 0 ? 256 : count) * unit_);
      const Bytes copied = stored.first(std::min(stored.size(), into.size()));
      std::ranges::copy(copied, into.begin());
      return copied.size();
    }
    const std::size_t count = std::min((code & 127) * unit_, into.size());
    std::ranges::fill(into.first(count), static_cast<std::uint8_t>(code >= 128 ? 0xFF : 0));
    return count;
  }

  static std::size_t Repeat(Bytes pattern, std::size_t count, std::span<std::uint8_t> into) {
    if (pattern.empty()) return 0;
    const std::size_t bytes = std::min(pattern.size() * count, into.size());
    for (std::size_t done = 0; done < bytes; done += pattern.size()) {
      const std::size_t part = std::min(pattern.size(), bytes - done);
      std::copy_n(pattern.begin(), part, into.begin() + static_cast<std::ptrdiff_t>(done));
    }
    return bytes;
  }

  ByteReader reader_;
  std::size_t patternBytes_;
  std::size_t unit_;
};

// One row of 15 or 16 bits (high byte first), 24 or 32 bits a pixel.
void UnpackTrueColour(const Header& header, Bytes bytes, std::span<std::uint32_t> row) {
  ByteReader reader(bytes);
  for (std::uint32_t& pixel : row) {
    if (header.planes <= 16) {
      const unsigned word = reader.U16Be();
      const unsigned greenBits = header.planes == 16 ? 6 : 5;
      const unsigned blue = word & 31, green = word >> 5 & ((1U << greenBits) - 1);
      const unsigned red = word >> (5 + greenBits) & 31;
      const auto widen = [](unsigned value) { return value << 3 | value >> 2; };
      pixel = Rgb(widen(red), greenBits == 6 ? Widen6(green) : widen(green), widen(blue));
      continue;
    }
    if (header.planes == 32) reader.Skip(1);
    const unsigned first = reader.U8(), second = reader.U8(), third = reader.U8();
    pixel = header.countsPixels ? Rgb(third, second, first) : Rgb(first, second, third);
  }
}

class GemDecoder final : public FileDecoder {
 public:
  GemDecoder(const PictureData& data, const OpenOptions& options, const Header& header)
      : FileDecoder(data, options, header.size, header.planes, "GEM"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    const Bytes headerBytes = reader.Take(header_.bytes);
    const Palette palette = header_.IsTrueColour() ? BlackPalette() : GemColours(headerBytes, header_.planes);
    Lines lines(reader, header_);
    const std::size_t lineBytes = header_.LineBytes();
    std::vector<std::uint8_t> row(lineBytes * header_.Lines());
    Pixels pixels = UnfilledPixels();
    for (int y = 0; y < pixels.Height();) {
      const int repeats = std::min(lines.Repeats(), pixels.Height() - y);
      const std::size_t columns = ReadRow(lines, row);
      if (columns == 0) {
        BlankFrom(pixels, y);
        break;
      }
      Unpack(row, palette, pixels.Row(y));
      std::ranges::fill(pixels.Row(y).subspan(columns), blankPixel);
      for (int i = 1; i < repeats; ++i) std::ranges::copy(pixels.Row(y), pixels.Row(y + i).begin());
      y += repeats;
    }
    return pixels;
  }

 private:
  // Returns how many pixels the input was good for; a pixel is good when its last plane is there.
  std::size_t ReadRow(Lines& lines, std::span<std::uint8_t> row) const {
    const std::size_t width = static_cast<std::size_t>(header_.size.width);
    const std::size_t lineBytes = header_.LineBytes();
    std::size_t done = 0;
    for (std::size_t line = 0; line < header_.Lines(); ++line) {
      done = lines.Read(row.subspan(line * lineBytes, lineBytes));
      if (done < lineBytes && line + 1 < header_.Lines()) return 0;
    }
    return std::min(width, header_.IsTrueColour() ? done / header_.BytesPerPixel() : done * 8);
  }

  void Unpack(Bytes row, const Palette& palette, std::span<std::uint32_t> pixels) const {
    if (header_.IsTrueColour()) return UnpackTrueColour(header_, row, pixels);
    std::vector<std::uint8_t> indices(pixels.size());
    JoinPlanes(row, header_.LineBytes(), header_.planes, indices);
    LookUp(indices, palette, pixels);
  }

  Header header_;
};

}  // namespace

// The header has no signature of its own. Drawings of the same system go by the same names; they are taken
// here to be refused by name.
Match MatchGem(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() < plainHeaderBytes) return Match::No;
  const Header header = ReadHeader(head);
  if (IsDrawing(header)) return Match::Maybe;
  if (!IsKnown(header)) return Match::No;
  return HasGemTag(head, "XIMG") ? Match::Sure : Match::Maybe;
}

std::unique_ptr<Decoder> OpenGem(const PictureData& data, const OpenOptions& options) {
  const Header header = ReadHeader(data.Head());
  if (IsDrawing(header)) {
    Refuse("GEM: metafile drawings are not supported");
  }
  return std::make_unique<GemDecoder>(data, options, header);
}

}  // namespace lumidex
