// Follows the TGA file format, version 2.0, of 1991.
#include "pictures/codecs/tga.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/byte_stream.h"
#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t headerSize = 18;
constexpr std::size_t footerSize = 26;
constexpr std::string_view footerMark = "TRUEVISION-XFILE";

struct Header {
  unsigned idLength = 0;
  bool hasMap = false;
  unsigned type = 0;  // 1 mapped, 2 colour, 3 grey; 8 more when run-length coded
  unsigned mapFirst = 0, mapCount = 0, mapBits = 0;
  Size size;
  unsigned depth = 0;
  unsigned alphaBits = 0;
  bool rightToLeft = false, topDown = false;

  unsigned Kind() const { return type & 7; }
  bool IsPacked() const { return (type & 8) != 0; }
  bool IsMapped() const { return Kind() == 1; }
};

Header ReadHeader(Bytes head) {
  ByteReader reader(head);
  Header header;
  header.idLength = reader.U8();
  header.hasMap = reader.U8() != 0;
  header.type = reader.U8();
  header.mapFirst = reader.U16Le();
  header.mapCount = reader.U16Le();
  header.mapBits = reader.U8();
  reader.Skip(4);
  header.size.width = reader.U16Le();
  header.size.height = reader.U16Le();
  header.depth = reader.U8();
  const unsigned descriptor = reader.U8();
  header.alphaBits = descriptor & 15;
  header.rightToLeft = (descriptor & 16) != 0;
  header.topDown = (descriptor & 32) != 0;
  return header;
}

bool IsOneOf(unsigned value, std::initializer_list<unsigned> values) {
  return std::ranges::find(values, value) != values.end();
}

bool IsColourDepth(unsigned bits) {
  return IsOneOf(bits, {15, 16, 24, 32});
}

// Entries of a byte are greys.
bool IsMapDepth(unsigned bits) {
  return bits == 8 || IsColourDepth(bits);
}

bool HasPlausibleDepth(const Header& header) {
  switch (header.Kind()) {
    case 1:
      return IsOneOf(header.depth, {8, 16});
    case 2:
      return IsColourDepth(header.depth);
    default:
      return IsOneOf(header.depth, {8, 16, 24, 32}) || (header.depth == 1 && !header.IsPacked());
  }
}

bool HasFooter(const PictureData& data) {
  if (data.Size() < footerSize) return false;
  const std::vector<std::uint8_t> footer = data.Stretch(data.Size() - footerSize, footerSize);
  return footer.size() == footerSize && std::equal(footerMark.begin(), footerMark.end(), footer.begin() + 8);
}

std::size_t EntryBytes(unsigned bits) {
  return (bits + 7) / 8;
}

std::uint32_t Colour555(unsigned value) {
  const auto widen = [](unsigned five) { return five << 3 | five >> 2; };
  return Rgb(widen(value >> 10 & 31), widen(value >> 5 & 31), widen(value & 31));
}

enum class Stored { Colour16, Bgr24, Bgra32, Index8, Index16, Grey8, GreyAlpha16 };

Stored StoredForm(const Header& header) {
  const bool wide = header.depth > 8;
  if (header.IsMapped()) return wide ? Stored::Index16 : Stored::Index8;
  if (header.depth == 32) return Stored::Bgra32;
  if (header.depth == 24) return Stored::Bgr24;
  if (header.Kind() == 3) return wide ? Stored::GreyAlpha16 : Stored::Grey8;
  return Stored::Colour16;
}

// Entry i belongs to index i; indices without an entry are black.
using ColourMap = std::vector<std::uint32_t>;

unsigned Word(const std::uint8_t* from) {
  return static_cast<unsigned>(from[0] | from[1] << 8);
}

// `source` holds exactly the bytes of `pixels`.
void Convert(Stored form, const ColourMap& map, Bytes source, std::span<std::uint32_t> pixels) {
  const std::uint8_t* from = source.data();
  switch (form) {
    case Stored::Colour16:
      for (auto& pixel : pixels) pixel = Colour555(Word(from)), from += 2;
      return;
    case Stored::Bgr24:
      for (auto& pixel : pixels) pixel = Rgb(from[2], from[1], from[0]), from += 3;
      return;
    case Stored::Bgra32:
      for (auto& pixel : pixels) pixel = Word(from) | Word(from + 2) << 16, from += 4;
      return;
    case Stored::Index8:
      for (auto& pixel : pixels) pixel = map[*from++];
      return;
    case Stored::Index16:
      for (auto& pixel : pixels) pixel = map[Word(from)], from += 2;
      return;
    case Stored::Grey8:
      for (auto& pixel : pixels) pixel = Rgb(*from, *from, *from), ++from;
      return;
    case Stored::GreyAlpha16:
      for (auto& pixel : pixels) pixel = std::uint32_t{from[1]} << 24 | 0x10101U * from[0], from += 2;
      return;
  }
}

ColourMap ReadMap(const Header& header, Bytes entries) {
  ColourMap map(header.depth > 8 ? 65536 : 256, blackPixel);
  const std::size_t entryBytes = EntryBytes(header.mapBits);
  const std::size_t first = std::min<std::size_t>(header.mapFirst, map.size());
  const std::size_t count = std::min(map.size() - first, entryBytes ? entries.size() / entryBytes : 0);
  const Stored form = entryBytes == 1   ? Stored::Grey8
                      : entryBytes == 2 ? Stored::Colour16
                      : entryBytes == 3 ? Stored::Bgr24
                                        : Stored::Bgra32;
  Convert(form, {}, entries.first(count * entryBytes), std::span(map).subspan(first, count));
  return map;
}

ColourMap GreyMap(const Header& header) {
  ColourMap map(header.depth > 8 ? 65536 : 256);
  for (std::size_t i = 0; i < map.size(); ++i) map[i] = Rgb(i & 255, i & 255, i & 255);
  return map;
}

// Gives the pixels in the order of the file.
class PixelReader {
 public:
  PixelReader(const Header& header, ColourMap map, ByteStream from)
      : form_(StoredForm(header)),
        packed_(header.IsPacked()),
        pixelBytes_((header.depth + 7) / 8),
        map_(std::move(map)),
        from_(std::move(from)) {}

  // Fills `row` from its start and returns how many pixels there were: fewer than asked only at the end.
  std::size_t Read(std::span<std::uint32_t> row) { return packed_ ? ReadPackets(row) : ReadPlain(row); }

 private:
  std::size_t ReadPlain(std::span<std::uint32_t> row) {
    const Bytes bytes = from_.Take(row.size() * pixelBytes_);
    const std::size_t count = bytes.size() / pixelBytes_;
    Convert(form_, map_, bytes.first(count * pixelBytes_), row.first(count));
    return count;
  }

  // By the rules a packet ends with its row; some writers do not.
  std::size_t ReadPackets(std::span<std::uint32_t> row) {
    std::size_t done = 0;
    while (done < row.size()) {
      if (left_ == 0) {
        const Bytes ahead = from_.Ahead(1 + pixelBytes_);
        if (ahead.size() < 1 + pixelBytes_) return done;
        left_ = (ahead[0] & 127U) + 1;
        repeats_ = (ahead[0] & 128) != 0;
        if (repeats_) Convert(form_, map_, ahead.subspan(1, pixelBytes_), {&repeated_, 1});
        from_.Advance(repeats_ ? 1 + pixelBytes_ : 1);
      }
      const auto target = row.subspan(done, std::min(left_, row.size() - done));
      std::size_t count = target.size();
      if (repeats_) {
        std::ranges::fill(target, repeated_);
      } else if ((count = ReadPlain(target)) < target.size()) {
        return done + count;
      }
      done += count;
      left_ -= count;
    }
    return done;
  }

  Stored form_;
  bool packed_;
  std::size_t pixelBytes_;
  ColourMap map_;
  ByteStream from_;
  std::size_t left_ = 0;  // pixels the current packet still gives
  bool repeats_ = false;
  std::uint32_t repeated_ = 0;
};

// True when the words made of the pixels have something else than 255 in their alpha byte.
bool HasFourthByte(const Header& header) {
  if (header.IsMapped()) return header.mapBits == 32;
  return header.depth == 32 || StoredForm(header) == Stored::GreyAlpha16;
}

enum class AlphaUse { Ignored, Untold, Straight, Premultiplied };

// What to make of alpha bytes: what the extension area of version 2.0 says. The descriptor's count of alpha
// bits settles nothing, since many writers leave it 0.
AlphaUse AlphaUseOf(const Header& header, const PictureData& data) {
  // Grey has its alpha in 16 bits; a fourth byte beside three that are grey means nothing.
  if (!HasFourthByte(header) || (header.Kind() == 3 && header.depth == 32)) return AlphaUse::Ignored;
  const std::vector<std::uint8_t> footer =
      data.Stretch(data.Size() - std::min<std::uint64_t>(data.Size(), footerSize), footerSize);
  ByteReader reader(footer);
  const std::size_t extension = reader.U32Le();
  reader.Skip(4);
  const Bytes mark = reader.Take(footerMark.size());
  if (extension < headerSize || !std::ranges::equal(mark, footerMark)) return AlphaUse::Untold;
  constexpr std::size_t attributesPlace = 494;
  const std::vector<std::uint8_t> attributes = data.Stretch(extension + attributesPlace, 1);
  switch (attributes.empty() ? 0 : attributes.front()) {
    case 0:
      return AlphaUse::Untold;
    case 1:
    case 2:
      return AlphaUse::Ignored;
    case 4:
      return AlphaUse::Premultiplied;
    default:
      return AlphaUse::Straight;
  }
}

bool HaveOneAlpha(std::span<const std::uint32_t> pixels) {
  return std::ranges::all_of(pixels, [&](std::uint32_t pixel) { return pixel >> 24 == pixels[0] >> 24; });
}

void Unpremultiply(std::span<std::uint32_t> pixels) {
  for (std::uint32_t& pixel : pixels) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255 || alpha == 0) continue;
    std::uint32_t straight = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
      const std::uint32_t component = pixel >> shift & 255;
      straight |= std::min<std::uint32_t>(255, (component * 255 + alpha / 2) / alpha) << shift;
    }
    pixel = straight;
  }
}

class TgaDecoder final : public FileDecoder {
 public:
  TgaDecoder(const PictureData& data, const Header& header, const OpenOptions& options)
      : FileDecoder(data, options, header.size, static_cast<int>(header.depth), "TGA"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    Pixels pixels = UnfilledPixels();
    ByteStream stream(Data(), headerSize + header_.idLength);
    ColourMap map = ReadMapBefore(stream);
    const int rows = header_.depth == 1 ? DecodeBits(stream, pixels)
                                        : DecodeRows(std::move(stream), std::move(map), pixels);
    Finish(rows, pixels);
    return pixels;
  }

 private:
  // A map that the header counts but does not announce is taken all the same when a mapped picture needs it.
  ColourMap ReadMapBefore(ByteStream& stream) const {
    const std::size_t mapBytes = header_.mapCount * EntryBytes(header_.mapBits);
    if (!header_.IsMapped()) {
      if (header_.hasMap) stream.Take(mapBytes);
      return {};
    }
    const std::size_t pixelBytes = header_.IsPacked() ? 0
                                                      : static_cast<std::size_t>(facts_.size.width) *
                                                            static_cast<std::size_t>(facts_.size.height);
    const bool hidden = !header_.hasMap && IsMapDepth(header_.mapBits) &&
                        stream.Position() + mapBytes + pixelBytes <= Data().Size();
    if (header_.mapCount == 0 || (!header_.hasMap && !hidden)) return GreyMap(header_);
    return ReadMap(header_, stream.Take(mapBytes));
  }

  // The row of the picture that row `stored` of the file is.
  int PlaceOf(int stored) const { return header_.topDown ? stored : facts_.size.height - 1 - stored; }

  // These return how many rows of the file were whole.
  int DecodeRows(ByteStream stream, ColourMap map, Pixels& pixels) const {
    PixelReader source(header_, std::move(map), std::move(stream));
    for (int stored = 0; stored < facts_.size.height; ++stored) {
      const auto row = pixels.Row(PlaceOf(stored));
      if (source.Read(row) < row.size()) return stored;
      if (header_.rightToLeft) std::ranges::reverse(row);
    }
    return facts_.size.height;
  }

  // One bit a pixel, each row filled up to a byte, 1 is white.
  int DecodeBits(ByteStream& stream, Pixels& pixels) const {
    const std::size_t rowBytes = RowBytes(facts_.size.width, 1);
    const PackedRows unpacker(1, TwoColours(blackPixel, whitePixel));
    for (int stored = 0; stored < facts_.size.height; ++stored) {
      const Bytes bytes = stream.Take(rowBytes);
      if (bytes.size() < rowBytes) return stored;
      const auto row = pixels.Row(PlaceOf(stored));
      unpacker.Unpack(bytes, row);
      if (header_.rightToLeft) std::ranges::reverse(row);
    }
    return facts_.size.height;
  }

  // Settles alpha and blanks the rows that were not read.
  void Finish(int rows, Pixels& pixels) const {
    const std::size_t width = static_cast<std::size_t>(facts_.size.width);
    const std::size_t readCount = static_cast<std::size_t>(rows) * width;
    const std::span<std::uint32_t> all(pixels.Data(), width * static_cast<std::size_t>(facts_.size.height));
    const auto read = header_.topDown ? all.first(readCount) : all.last(readCount);
    const auto unread = header_.topDown ? all.subspan(readCount) : all.first(all.size() - readCount);
    AlphaUse use = AlphaUseOf(header_, Data());
    // A fourth byte of which nobody says that it is alpha must at least vary.
    if (use == AlphaUse::Untold && header_.alphaBits == 0 && HaveOneAlpha(read)) use = AlphaUse::Ignored;
    if (use == AlphaUse::Ignored && HasFourthByte(header_))
      for (std::uint32_t& pixel : read) pixel |= blackPixel;
    if (use == AlphaUse::Premultiplied) Unpremultiply(read);
    if (use != AlphaUse::Ignored) {
      // Without a say in whether the picture is opaque.
      std::ranges::fill(unread, blankPixel & 0xFFFFFF);
      pixels.SetFormat(PixelFormat::Argb);
      SettleAlpha(pixels);
    }
    std::ranges::fill(unread, blankPixel);
  }

  Header header_;
};

}  // namespace

// There is no signature at the start; files of version 2.0 have one at their end, looked for only when the
// header fits.
Match MatchTga(const PictureData& data) {
  if (data.Head().size() < headerSize) return Match::No;
  const Header header = ReadHeader(data.Head());
  if (data.Head()[1] > 1 || !IsOneOf(header.type, {1, 2, 3, 9, 10, 11, 32, 33})) return Match::No;
  return HasPlausibleDepth(header) && HasFooter(data) ? Match::Sure : Match::Maybe;
}

std::unique_ptr<Decoder> OpenTga(const PictureData& data, const OpenOptions& options) {
  const Header header = ReadHeader(data.Head());
  if (header.type >= 32) Refuse("TGA: Huffman coding is not supported");
  if (!HasPlausibleDepth(header)) Refuse("TGA: this depth does not occur");
  if (header.IsMapped() && header.hasMap && header.mapCount > 0 && !IsMapDepth(header.mapBits))
    Refuse("TGA: this depth of the colour map does not occur");
  return std::make_unique<TgaDecoder>(data, header, options);
}

}  // namespace lumidex
