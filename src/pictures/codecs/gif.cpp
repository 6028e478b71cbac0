#include "pictures/codecs/gif.h"

#include <algorithm>
#include <array>
#include <optional>

#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/codecs/gif_indices.h"
#include "pictures/file_decoder.h"
#include "pictures/file_window.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t headerBytes = 13;
constexpr std::uint8_t extensionMark = 0x21, frameMark = 0x2C, transparencyLabel = 0xF9;

// A table of colours in the file; without entries where there is none.
struct Table {
  std::uint64_t offset = 0;
  int bits = 0;  // of an index

  // From a byte of flags, for a table that would begin at `offset`.
  static Table From(std::uint8_t flags, std::uint64_t offset) {
    return (flags & 0x80) == 0 ? Table{} : Table{offset, (flags & 7) + 1};
  }
  std::size_t ByteCount() const { return bits == 0 ? 0 : std::size_t{3} << bits; }
};

struct Frame {
  int left = 0, top = 0;
  Size size;
  bool interlaced = false;
  std::uint64_t pixels = 0;  // where they begin
};

struct Header {
  Size screen;
  Table colours;  // of the first frame
  std::optional<Frame> frame;
  std::optional<int> transparent;
};

std::uint8_t ByteAt(FileWindow& file, std::uint64_t offset) {
  const Bytes byte = file.At(offset, 1);
  return byte.empty() ? std::uint8_t{0} : byte[0];
}

// Where the blocks that begin at `offset` end.
std::uint64_t BehindBlocks(FileWindow& file, std::uint64_t offset) {
  while (const std::uint8_t length = ByteAt(file, offset)) offset += length + 1U;
  return offset + 1;
}

Frame ReadFrame(FileWindow& file, std::uint64_t offset, Table& colours) {
  constexpr std::size_t frameBytes = 9;
  ByteReader reader(file.At(offset, frameBytes));
  Frame frame;
  frame.left = reader.U16Le();
  frame.top = reader.U16Le();
  frame.size = {reader.U16Le(), reader.U16Le()};
  const std::uint8_t flags = reader.U8();
  frame.interlaced = (flags & 0x40) != 0;
  const Table own = Table::From(flags, offset + frameBytes);
  if (own.bits != 0) colours = own;
  frame.pixels = offset + frameBytes + own.ByteCount();
  return frame;
}

// All that stands before the pixels of the first frame.
Header ReadHeader(const PictureData& data) {
  ByteReader reader(data.Head());
  Header header;
  reader.Skip(6);
  header.screen = {reader.U16Le(), reader.U16Le()};
  header.colours = Table::From(reader.U8(), headerBytes);
  FileWindow file(data);
  std::uint64_t offset = headerBytes + header.colours.ByteCount();
  while (ByteAt(file, offset) == extensionMark) {
    const std::uint8_t label = ByteAt(file, offset + 1);
    // Length, flags, two bytes of delay, transparent colour.
    const Bytes block = file.At(offset + 2, 5);
    if (label == transparencyLabel && block.size() == 5 && block[0] >= 4) {
      header.transparent.reset();
      if ((block[1] & 1) != 0) header.transparent = block[4];
    }
    offset = BehindBlocks(file, offset + 2);
  }
  if (ByteAt(file, offset) == frameMark) header.frame = ReadFrame(file, offset + 1, header.colours);
  return header;
}

int DepthOf(const Table& colours) {
  const int bits = colours.bits == 0 ? 8 : colours.bits;
  if (bits <= 2) return bits;
  return bits <= 4 ? 4 : 8;
}

// The screen, or what a first frame takes that is larger or has none.
Size SizeOf(const Header& header, const PictureLimits& limits) {
  if (!header.frame) return header.screen;
  const Frame& frame = *header.frame;
  if (header.screen.width == 0 || header.screen.height == 0) return frame.size;
  if (frame.size.width <= header.screen.width && frame.size.height <= header.screen.height)
    return header.screen;
  const Size whole{std::max(header.screen.width, frame.left + frame.size.width),
                   std::max(header.screen.height, frame.top + frame.size.height)};
  const bool possible = whole.width <= limits.side && whole.height <= limits.side &&
                        std::int64_t{4} * whole.width * whole.height <= smallFilePixelBytes;
  return possible ? whole : header.screen;
}

// The order in which the rows of an interlaced frame come.
std::vector<int> RowOrder(int height, bool interlaced) {
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(height));
  constexpr std::array<std::array<int, 2>, 4> passes = {{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  if (interlaced) {
    for (const auto [first, step] : passes) {
      for (int y = first; y < height; y += step) order.push_back(y);
    }
  } else {
    for (int y = 0; y < height; ++y) order.push_back(y);
  }
  return order;
}

class GifDecoder final : public FileDecoder {
 public:
  GifDecoder(const PictureData& data, const Header& header, const OpenOptions& options)
      : FileDecoder(data, options, SizeOf(header, options.limits), DepthOf(header.colours), "GIF"),
        header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = Pixels::Make(facts_.size, PixelFormat::Argb, 0, Limits());
    if (header_.frame) DrawFrame(*header_.frame, pixels);
    DeclareOpaqueIfSo(pixels);
    return pixels;
  }

 private:
  Palette Colours() const {
    if (header_.colours.bits == 0) return GreyPalette();
    Palette palette = BlackPalette();
    const auto bytes = Data().Stretch(header_.colours.offset, header_.colours.ByteCount());
    for (std::size_t i = 0; i < bytes.size() / 3; ++i)
      palette[i] = Rgb(bytes[3 * i], bytes[3 * i + 1], bytes[3 * i + 2]);
    return palette;
  }

  void DrawFrame(const Frame& frame, Pixels& pixels) const {
    if (frame.size.width < 1 || frame.size.height < 1) return;
    Palette palette = Colours();
    if (header_.transparent) palette[static_cast<std::size_t>(*header_.transparent)] = 0;
    const int visible = std::clamp(pixels.Width() - frame.left, 0, frame.size.width);
    std::vector<std::uint8_t> line(static_cast<std::size_t>(frame.size.width));
    GifIndices indices(ByteStream(Data(), frame.pixels));
    // A frame far larger than its screen is no reason to unpack what nobody sees.
    std::int64_t budget = std::int64_t{pixels.Width()} * pixels.Height() * 4 + (std::int64_t{1} << 20);
    for (const int row : RowOrder(frame.size.height, frame.interlaced)) {
      budget -= frame.size.width;
      const std::size_t count = budget < 0 ? 0 : indices.Read(line);
      if (row + frame.top < pixels.Height() && visible > 0) {
        const auto target = pixels.Row(row + frame.top).subspan(static_cast<std::size_t>(frame.left));
        LookUp(Bytes(line).first(std::min(count, static_cast<std::size_t>(visible))), palette, target);
      } else if (!frame.interlaced) {
        return;
      }
      if (count < line.size()) return;
    }
  }

  Header header_;
};

}  // namespace

Match MatchGif(const PictureData& data) {
  constexpr std::string_view name = "GIF8";
  const Bytes head = data.Head();
  return head.size() >= name.size() && std::equal(name.begin(), name.end(), head.begin()) ? Match::Sure
                                                                                          : Match::No;
}

std::unique_ptr<Decoder> OpenGif(const PictureData& data, const OpenOptions& options) {
  if (data.Head().size() < headerBytes) Refuse("GIF: the header is cut");
  return std::make_unique<GifDecoder>(data, ReadHeader(data), options);
}

}  // namespace lumidex
