#include "pictures/codecs/tiff_facts.h"

#include <algorithm>
#include <array>
#include <vector>

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
  bool Has(unsigned tag) const { return Find(tag) != nullptr; }

  // The only number of a tag.
  std::uint32_t Short(unsigned tag, std::uint32_t otherwise) { return Only(tag, {TIFF_SHORT}, otherwise); }
  std::uint32_t ShortOrLong(unsigned tag, std::uint32_t otherwise) {
    return Only(tag, {TIFF_SHORT, TIFF_LONG}, otherwise);
  }
  // Of a tag with one number for all samples, or the same one for each.
  std::uint32_t ShortOfSamples(unsigned tag, std::uint32_t samples, std::uint32_t otherwise);
  // All of a tag that has at least one and up to `most`; none where it is missing.
  std::vector<std::uint32_t> Shorts(unsigned tag, std::uint32_t most);
  // Expects the tag to have values of one of the types, all of them within the file.
  void ExpectValues(unsigned tag, std::initializer_list<unsigned> types, std::uint64_t count);
  void ExpectValues(unsigned tag, std::initializer_list<unsigned> types);

 private:
  struct Entry {
    unsigned tag = 0, type = 0;
    std::uint64_t count = 0;
    bool isHere = false;       // few values stand in place of their offset
    std::uint64_t offset = 0;  // of the others in the file
    std::array<std::uint8_t, 8> values{};
  };

  std::uint64_t Number(Bytes bytes) const;
  void ReadEntries(Bytes bytes, std::size_t numberBytes);
  // Null where there is no such tag.
  const Entry* Find(unsigned tag) const;
  std::uint32_t Only(unsigned tag, std::initializer_list<unsigned> types, std::uint32_t otherwise);
  std::uint32_t NumberOf(const Entry& entry, std::uint32_t index);
  bool AreInFile(const Entry& entry) const;

  FileWindow window_;
  std::uint64_t fileBytes_;
  bool bigEndian_ = false, plain_ = true;
  std::size_t count_ = 0;
  std::array<Entry, MostEntries> entries_;
};

Directory::Directory(const PictureData& data) : window_(data), fileBytes_(data.Size()) {
  const Bytes head = window_.At(0, 16);
  plain_ = head.size() == 16;
  if (!plain_) return;
  bigEndian_ = head[0] == 'M';
  const std::uint64_t version = Number(head.subspan(2, 2));
  const bool wide = version == 43;
  Expect((bigEndian_ || head[0] == 'I') && head[1] == head[0] && (wide || version == 42));
  if (wide) Expect(Number(head.subspan(4, 2)) == 8 && Number(head.subspan(6, 2)) == 0);
  const std::size_t numberBytes = wide ? 8 : 4,
                    countBytes = wide ? 8 : 2;  // offsets; how many tags there are
  const std::uint64_t offset = Number(head.subspan(numberBytes, numberBytes));
  const Bytes count = window_.At(offset, countBytes);
  const std::uint64_t entries = Number(count);
  Expect(count.size() == countBytes && entries > 0 && entries <= MostEntries);
  if (!plain_) return;
  const std::size_t directoryBytes = static_cast<std::size_t>(entries) * (4 + 2 * numberBytes);
  const Bytes bytes = window_.At(offset + countBytes, directoryBytes);
  Expect(bytes.size() == directoryBytes);
  if (plain_) ReadEntries(bytes, numberBytes);
}

// What tags mean depends on those before them, so they must stand in their order. Some change what others say
// in ways that are left to libtiff.
void Directory::ReadEntries(Bytes bytes, std::size_t numberBytes) {
  constexpr std::array<unsigned, 8> changing = {
      TIFFTAG_MINSAMPLEVALUE, TIFFTAG_MAXSAMPLEVALUE, TIFFTAG_SMINSAMPLEVALUE, TIFFTAG_SMAXSAMPLEVALUE,
      TIFFTAG_MATTEING,       TIFFTAG_DATATYPE,       TIFFTAG_IMAGEDEPTH,      TIFFTAG_TILEDEPTH};
  constexpr std::uint64_t mostValues = 0xFFFFFFFF;
  for (unsigned last = 0; !bytes.empty() && plain_; ++count_) {
    Entry& entry = entries_[count_];
    entry.tag = static_cast<unsigned>(Number(bytes.first(2)));
    entry.type = static_cast<unsigned>(Number(bytes.subspan(2, 2)));
    entry.count = Number(bytes.subspan(4, numberBytes));
    Expect((count_ == 0 || entry.tag > last) && WidthOf(entry.type) > 0 && entry.count <= mostValues &&
           std::ranges::find(changing, entry.tag) == changing.end());
    if (!plain_) return;
    last = entry.tag;
    const Bytes values = bytes.subspan(4 + numberBytes, numberBytes);
    entry.isHere = entry.count * WidthOf(entry.type) <= numberBytes;
    entry.offset = Number(values);
    std::ranges::copy(values, entry.values.begin());
    bytes = bytes.subspan(4 + 2 * numberBytes);
  }
}

std::uint64_t Directory::Number(Bytes bytes) const {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    number = number << 8 | bytes[bigEndian_ ? i : bytes.size() - 1 - i];
  return number;
}

const Directory::Entry* Directory::Find(unsigned tag) const {
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(count_);
  const auto found = std::lower_bound(entries_.begin(), end, tag,
                                      [](const Entry& entry, unsigned wanted) { return entry.tag < wanted; });
  return found != end && found->tag == tag ? &*found : nullptr;
}

std::uint32_t Directory::NumberOf(const Entry& entry, std::uint32_t index) {
  const std::size_t width = WidthOf(entry.type);
  const Bytes bytes = entry.isHere ? Bytes(entry.values).subspan(index * width, width)
                                   : window_.At(entry.offset + std::uint64_t{index} * width, width);
  Expect(bytes.size() == width);
  return static_cast<std::uint32_t>(Number(bytes));
}

std::uint32_t Directory::Only(unsigned tag, std::initializer_list<unsigned> types, std::uint32_t otherwise) {
  const Entry* const entry = Find(tag);
  if (entry == nullptr) return otherwise;
  Expect(entry->count == 1 && std::ranges::find(types, entry->type) != types.end());
  return plain_ ? NumberOf(*entry, 0) : otherwise;
}

std::uint32_t Directory::ShortOfSamples(unsigned tag, std::uint32_t samples, std::uint32_t otherwise) {
  const Entry* const entry = Find(tag);
  if (entry == nullptr) return otherwise;
  Expect(entry->type == TIFF_SHORT && samples <= MostSamples &&
         (entry->count == 1 || entry->count == samples));
  if (!plain_) return otherwise;
  const std::uint32_t first = NumberOf(*entry, 0);
  for (std::uint32_t i = 1; i < entry->count; ++i) Expect(NumberOf(*entry, i) == first);
  return first;
}

std::vector<std::uint32_t> Directory::Shorts(unsigned tag, std::uint32_t most) {
  std::vector<std::uint32_t> numbers;
  const Entry* const entry = Find(tag);
  if (entry == nullptr) return numbers;
  Expect(entry->type == TIFF_SHORT && entry->count > 0 && entry->count <= most);
  for (std::uint32_t i = 0; plain_ && i < entry->count; ++i) numbers.push_back(NumberOf(*entry, i));
  return numbers;
}

void Directory::ExpectValues(unsigned tag, std::initializer_list<unsigned> types, std::uint64_t count) {
  const Entry* const entry = Find(tag);
  Expect(entry != nullptr && entry->count == count && std::ranges::find(types, entry->type) != types.end());
  if (plain_) Expect(AreInFile(*entry));
}

void Directory::ExpectValues(unsigned tag, std::initializer_list<unsigned> types) {
  const Entry* const entry = Find(tag);
  ExpectValues(tag, types, entry == nullptr ? 0 : entry->count);
}

bool Directory::AreInFile(const Entry& entry) const {
  return entry.count > 0 &&
         (entry.isHere ||
          (entry.offset <= fileBytes_ && entry.count * WidthOf(entry.type) <= fileBytes_ - entry.offset));
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
    // The number that stands for all rows; others as large are wrong.
    constexpr std::uint32_t all = 0xFFFFFFFF;
    const std::uint32_t rows = directory.ShortOrLong(TIFFTAG_ROWSPERSTRIP, all);
    directory.Expect(rows == all || rows <= all / 2);
    pieceHeight = std::min(rows, height);
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
  const std::vector<std::uint32_t> others = directory.Shorts(TIFFTAG_EXTRASAMPLES, samples);
  directory.Expect(colourSamples > 0 && samples == colourSamples + others.size());
  for (const std::uint32_t kind : others) directory.Expect(kind <= EXTRASAMPLE_UNASSALPHA);
  if (!others.empty()) layout.alpha = TiffAlphaOf(others.front());
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
