#include "pictures/codecs/tiff_facts.h"

#include <algorithm>
#include <array>

#include "pictures/file_window.h"

namespace lumidex {
namespace {

constexpr std::size_t MostEntries = 64;
constexpr std::uint32_t MostSide = 0xFFFF;
constexpr std::uint32_t MostSamples = 16;
// What the planes of a strip or a row of tiles may take together; far below what is refused.
constexpr std::uint64_t MostBandBytes = std::uint64_t{64} << 20;

// The bytes of a value of each type, 0 for unknown ones.
constexpr std::size_t WidthOf(unsigned type) {
  constexpr std::array<std::uint8_t, TIFF_IFD8 + 1> widths = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4,
                                                              8, 4, 8, 4, 0, 0, 8, 8, 8};
  return type < widths.size() ? widths[type] : 0;
}

constexpr std::uint32_t PartsOf(std::uint32_t whole, std::uint32_t part) {
  return whole / part + (whole % part > 0 ? 1 : 0);
}

// The first directory of a file. Whatever is not as it should be is remembered as a doubt, and reads as some
// number that does no harm.
class Directory {
 public:
  explicit Directory(const PictureData& data);

  bool IsPlain() const { return plain_; }
  void Expect(bool condition) { plain_ = plain_ && condition; }
  bool Has(unsigned tag) const { return Place(tag) < count_; }

  // The only number of a tag.
  std::uint32_t Short(unsigned tag, std::uint32_t otherwise) { return Only(tag, {TIFF_SHORT}, otherwise); }
  std::uint32_t ShortOrLong(unsigned tag, std::uint32_t otherwise) {
    return Only(tag, {TIFF_SHORT, TIFF_LONG}, otherwise);
  }
  // Of a tag with one number for all samples, or the same one for each.
  std::uint32_t ShortOfSamples(unsigned tag, std::uint32_t samples, std::uint32_t otherwise);
  // Of a tag that has up to `most` numbers of 16 bits; how many there are is told first.
  std::uint32_t CountOf(unsigned tag, std::uint32_t most);
  std::uint32_t ShortAt(unsigned tag, std::uint32_t index);
  // Expects the tag to have values of one of the types, all of them within the file.
  void ExpectValues(unsigned tag, std::initializer_list<unsigned> types, std::uint64_t count);
  void ExpectValues(unsigned tag, std::initializer_list<unsigned> types);

 private:
  struct Entry {
    unsigned type = 0;
    std::uint64_t count = 0;
    std::uint64_t offset = 0;  // in the file
  };

  std::uint64_t Number(Bytes bytes) const;
  unsigned Tag(std::size_t place) const { return static_cast<unsigned>(Number(Field(place, 0, 2))); }
  Bytes Field(std::size_t place, std::size_t at, std::size_t bytes) const {
    return Bytes(entries_).subspan(place * entryBytes_ + at, bytes);
  }
  // Where the tag stands in the directory; beyond its end where it does not.
  std::size_t Place(unsigned tag) const;
  Entry Find(unsigned tag) const;
  std::uint32_t Only(unsigned tag, std::initializer_list<unsigned> types, std::uint32_t otherwise);
  std::uint32_t ShortOf(const Entry& entry, std::uint32_t index);
  void CheckEntries();

  FileWindow window_;
  std::uint64_t fileBytes_;
  bool bigEndian_ = false, plain_ = true;
  std::size_t numberBytes_ = 4;  // of a count and of an offset
  std::size_t entryBytes_ = 12, count_ = 0;
  std::uint64_t start_ = 0;  // of the first entry
  std::array<std::uint8_t, MostEntries * 20> entries_{};
};

Directory::Directory(const PictureData& data) : window_(data), fileBytes_(data.Size()) {
  const Bytes head = window_.At(0, 16);
  plain_ = head.size() == 16;
  if (!plain_) return;
  bigEndian_ = head[0] == 'M';
  const std::uint64_t version = Number(head.subspan(2, 2));
  const bool wide = version == 43;
  Expect((bigEndian_ || head[0] == 'I') && head[1] == head[0] && (wide || version == 42));
  if (wide) {
    numberBytes_ = 8;
    entryBytes_ = 20;
    Expect(Number(head.subspan(4, 2)) == 8 && Number(head.subspan(6, 2)) == 0);
  }
  const std::uint64_t offset = Number(head.subspan(numberBytes_, numberBytes_));
  const std::size_t countBytes = wide ? 8 : 2;
  const Bytes count = window_.At(offset, countBytes);
  const std::uint64_t entries = Number(count);
  Expect(count.size() == countBytes && entries > 0 && entries <= MostEntries);
  if (!plain_) return;
  count_ = static_cast<std::size_t>(entries);
  start_ = offset + countBytes;
  const Bytes bytes = window_.At(start_, count_ * entryBytes_);
  Expect(bytes.size() == count_ * entryBytes_);
  if (!plain_) return;
  std::ranges::copy(bytes, entries_.begin());
  CheckEntries();
}

// What tags mean depends on those before them, so they must stand in their order. Some change what others say
// in ways that are left to libtiff.
void Directory::CheckEntries() {
  constexpr std::array<unsigned, 8> changing = {
      TIFFTAG_MINSAMPLEVALUE, TIFFTAG_MAXSAMPLEVALUE, TIFFTAG_SMINSAMPLEVALUE, TIFFTAG_SMAXSAMPLEVALUE,
      TIFFTAG_MATTEING,       TIFFTAG_DATATYPE,       TIFFTAG_IMAGEDEPTH,      TIFFTAG_TILEDEPTH};
  unsigned last = 0;
  for (std::size_t place = 0; place < count_; ++place) {
    const unsigned tag = Tag(place);
    Expect((place == 0 || tag > last) && WidthOf(static_cast<unsigned>(Number(Field(place, 2, 2)))) > 0 &&
           std::ranges::find(changing, tag) == changing.end());
    last = tag;
  }
}

std::uint64_t Directory::Number(Bytes bytes) const {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    number = number << 8 | bytes[bigEndian_ ? i : bytes.size() - 1 - i];
  return number;
}

std::size_t Directory::Place(unsigned tag) const {
  std::size_t low = 0, high = count_;
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    Tag(middle) < tag ? low = middle + 1 : high = middle;
  }
  return low < count_ && Tag(low) == tag ? low : count_;
}

Directory::Entry Directory::Find(unsigned tag) const {
  const std::size_t place = Place(tag);
  if (place == count_) return {};
  Entry entry{.type = static_cast<unsigned>(Number(Field(place, 2, 2))),
              .count = Number(Field(place, 4, numberBytes_))};
  // Few values stand in place of their offset.
  entry.offset = entry.count <= numberBytes_ / WidthOf(entry.type)
                     ? start_ + place * entryBytes_ + 4 + numberBytes_
                     : Number(Field(place, 4 + numberBytes_, numberBytes_));
  return entry;
}

std::uint32_t Directory::ShortOf(const Entry& entry, std::uint32_t index) {
  const Bytes bytes = window_.At(entry.offset + std::uint64_t{2} * index, 2);
  Expect(bytes.size() == 2);
  return static_cast<std::uint32_t>(Number(bytes));
}

std::uint32_t Directory::Only(unsigned tag, std::initializer_list<unsigned> types, std::uint32_t otherwise) {
  const Entry entry = Find(tag);
  if (entry.type == 0) return otherwise;
  Expect(entry.count == 1 && std::ranges::find(types, entry.type) != types.end());
  return static_cast<std::uint32_t>(
      Number(window_.At(entry.offset, std::min<std::size_t>(4, WidthOf(entry.type)))));
}

std::uint32_t Directory::ShortOfSamples(unsigned tag, std::uint32_t samples, std::uint32_t otherwise) {
  const Entry entry = Find(tag);
  if (entry.type == 0) return otherwise;
  Expect(entry.type == TIFF_SHORT && samples <= MostSamples && (entry.count == 1 || entry.count == samples));
  if (!plain_) return otherwise;
  const std::uint32_t first = ShortOf(entry, 0);
  for (std::uint32_t i = 1; i < entry.count; ++i) Expect(ShortOf(entry, i) == first);
  return first;
}

std::uint32_t Directory::CountOf(unsigned tag, std::uint32_t most) {
  const Entry entry = Find(tag);
  if (entry.type == 0) return 0;
  Expect(entry.type == TIFF_SHORT && entry.count > 0 && entry.count <= most);
  return plain_ ? static_cast<std::uint32_t>(entry.count) : 0;
}

std::uint32_t Directory::ShortAt(unsigned tag, std::uint32_t index) {
  return ShortOf(Find(tag), index);
}

void Directory::ExpectValues(unsigned tag, std::initializer_list<unsigned> types) {
  ExpectValues(tag, types, Find(tag).count);
}

void Directory::ExpectValues(unsigned tag, std::initializer_list<unsigned> types, std::uint64_t count) {
  const Entry entry = Find(tag);
  Expect(entry.count == count && count > 0 && count <= fileBytes_ &&
         std::ranges::find(types, entry.type) != types.end() && entry.offset <= fileBytes_ &&
         count * WidthOf(entry.type) <= fileBytes_ - entry.offset);
}

// The samples that make the colour, 0 for what is left to libtiff.
std::uint32_t ColourSamplesOf(int photometric) {
  switch (photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_PALETTE:
      return 1;
    case PHOTOMETRIC_RGB:
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
      return 3;
    case PHOTOMETRIC_SEPARATED:
      return 4;
    default:
      return 0;
  }
}

bool IsPlainCompression(std::uint32_t compression) {
  constexpr std::array<std::uint32_t, 10> known = {
      COMPRESSION_NONE,          COMPRESSION_CCITTRLE, COMPRESSION_CCITTFAX3, COMPRESSION_CCITTFAX4,
      COMPRESSION_LZW,           COMPRESSION_JPEG,     COMPRESSION_PACKBITS,  COMPRESSION_CCITTRLEW,
      COMPRESSION_ADOBE_DEFLATE, COMPRESSION_DEFLATE};
  return std::ranges::find(known, compression) != known.end();
}

// Strips or tiles, as many as the picture takes and none so large that it might be refused.
void ExpectPieces(Directory& directory, const TiffLayout& layout, std::uint32_t width, std::uint32_t height) {
  const bool tiled = directory.Has(TIFFTAG_TILEWIDTH);
  std::uint32_t pieceWidth = width, pieceHeight = height;
  if (tiled) {
    pieceWidth = directory.ShortOrLong(TIFFTAG_TILEWIDTH, 0);
    pieceHeight = directory.ShortOrLong(TIFFTAG_TILELENGTH, 0);
    directory.Expect(pieceWidth > 0 && pieceWidth <= MostSide && pieceHeight <= MostSide &&
                     !directory.Has(TIFFTAG_ROWSPERSTRIP) && !directory.Has(TIFFTAG_STRIPOFFSETS) &&
                     !directory.Has(TIFFTAG_STRIPBYTECOUNTS));
  } else {
    pieceHeight = std::min(directory.ShortOrLong(TIFFTAG_ROWSPERSTRIP, height), height);
    directory.Expect(!directory.Has(TIFFTAG_TILELENGTH) && !directory.Has(TIFFTAG_TILEOFFSETS) &&
                     !directory.Has(TIFFTAG_TILEBYTECOUNTS));
  }
  directory.Expect(pieceHeight > 0);
  if (!directory.IsPlain()) return;
  const auto samples = static_cast<std::uint32_t>(layout.samples);
  const std::uint64_t pixelBits = std::uint64_t{samples} * static_cast<std::uint32_t>(layout.bits);
  const std::uint64_t bandBytes =
      (std::uint64_t{pieceWidth} * pixelBits / 8 + samples) * std::uint64_t{pieceHeight};
  if (tiled || layout.separate) directory.Expect(bandBytes <= MostBandBytes);
  const std::uint64_t pieces = std::uint64_t{PartsOf(width, pieceWidth)} * PartsOf(height, pieceHeight) *
                               (layout.separate ? samples : 1);
  for (const unsigned tag : {tiled ? TIFFTAG_TILEOFFSETS : TIFFTAG_STRIPOFFSETS,
                             tiled ? TIFFTAG_TILEBYTECOUNTS : TIFFTAG_STRIPBYTECOUNTS})
    directory.ExpectValues(tag, {TIFF_SHORT, TIFF_LONG}, pieces);
}

}  // namespace

TiffFacts LibraryTiffFacts(const TiffFile& file) {
  return {.layout = ReadTiffLayout(file), .hasProfile = file.HasProfile()};
}

std::optional<TiffFacts> ReadTiffFacts(const PictureData& data) {
  Directory directory(data);
  if (!directory.IsPlain()) return std::nullopt;
  const std::uint32_t width = directory.ShortOrLong(TIFFTAG_IMAGEWIDTH, 0);
  const std::uint32_t height = directory.ShortOrLong(TIFFTAG_IMAGELENGTH, 0);
  const std::uint32_t samples = directory.Short(TIFFTAG_SAMPLESPERPIXEL, 1);
  const std::uint32_t bits = directory.ShortOfSamples(TIFFTAG_BITSPERSAMPLE, samples, 1);
  const std::uint32_t compression = directory.Short(TIFFTAG_COMPRESSION, 0);
  const std::uint32_t photometric = directory.Short(TIFFTAG_PHOTOMETRIC, MostSide);
  const std::uint32_t sampleFormat =
      directory.ShortOfSamples(TIFFTAG_SAMPLEFORMAT, samples, SAMPLEFORMAT_UINT);
  const std::uint32_t planes = directory.Short(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  const std::uint32_t orientation = directory.Short(TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  const std::uint32_t otherSamples = directory.CountOf(TIFFTAG_EXTRASAMPLES, samples);
  directory.Expect(width > 0 && width <= MostSide && height > 0 && height <= MostSide && samples > 0 &&
                   samples <= MostSamples && bits > 0 && bits <= 64 && IsPlainCompression(compression) &&
                   sampleFormat >= SAMPLEFORMAT_UINT && sampleFormat <= SAMPLEFORMAT_VOID &&
                   (planes == PLANARCONFIG_CONTIG || planes == PLANARCONFIG_SEPARATE) &&
                   orientation >= ORIENTATION_TOPLEFT && orientation <= ORIENTATION_LEFTBOT);
  if (!directory.IsPlain()) return std::nullopt;

  TiffFacts facts;
  TiffLayout& layout = facts.layout;
  layout.width = width;
  layout.height = height;
  layout.bits = static_cast<int>(bits);
  layout.samples = static_cast<int>(samples);
  layout.photometric = static_cast<int>(photometric);
  layout.compression = static_cast<int>(compression);
  layout.sampleFormat = static_cast<int>(sampleFormat);
  layout.separate = planes == PLANARCONFIG_SEPARATE && samples > 1;
  layout.orientation = OrientationOf(static_cast<int>(orientation));
  const std::uint32_t colourSamples = ColourSamplesOf(layout.photometric);
  layout.colourSamples = static_cast<int>(colourSamples);
  directory.Expect(colourSamples > 0 && samples == colourSamples + otherSamples);
  for (std::uint32_t i = 0; i < otherSamples; ++i)
    directory.Expect(directory.ShortAt(TIFFTAG_EXTRASAMPLES, i) <= EXTRASAMPLE_UNASSALPHA);
  if (otherSamples > 0) layout.alpha = TiffAlphaOf(directory.ShortAt(TIFFTAG_EXTRASAMPLES, 0));
  if (layout.photometric == PHOTOMETRIC_PALETTE) {
    // A map that comes without the bits is not taken.
    directory.Expect(bits <= 16 && directory.Has(TIFFTAG_BITSPERSAMPLE));
    directory.ExpectValues(TIFFTAG_COLORMAP, {TIFF_SHORT}, std::uint64_t{3} << std::min(bits, 16U));
  }
  facts.hasProfile = directory.Has(TIFFTAG_ICCPROFILE);
  if (facts.hasProfile) directory.ExpectValues(TIFFTAG_ICCPROFILE, {TIFF_BYTE, TIFF_UNDEFINED});
  ExpectPieces(directory, layout, width, height);
  return directory.IsPlain() ? std::optional(facts) : std::nullopt;
}

}  // namespace lumidex
