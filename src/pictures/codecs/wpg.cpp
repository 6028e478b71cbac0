// Written after the published descriptions of the WordPerfect graphics records.
#include "pictures/codecs/wpg.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/codecs/wpg_rows.h"
#include "pictures/file_decoder.h"
#include "pictures/file_window.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t headerSize = 16;
constexpr std::uint32_t signature = 0xFF575043;
constexpr std::uint8_t graphicsFile = 0x16;

struct Record {
  unsigned type = 0;
  std::uint64_t offset = 0;  // of the content
  std::uint64_t length = 0;
};

// One byte, or FF and two bytes, or FF and four bytes of which the high half stands first, marked by its top
// bit.
std::uint32_t ReadLength(ByteReader& reader) {
  const std::uint32_t little = reader.U8();
  if (little < 0xFF) return little;
  const std::uint32_t word = reader.U16Le();
  if ((word & 0x8000) == 0) return word;
  return (word & 0x7FFF) << 16 | reader.U16Le();
}

class RecordWalk {
 public:
  RecordWalk(const PictureData& data, std::uint64_t start, int version)
      : window_(data), next_(start), version_(version) {}

  // No more records after the end of the file, or after so many that nobody wrote them on purpose.
  std::optional<Record> Next() {
    constexpr int mostRecords = 1'000'000;
    if (++count_ > mostRecords) return {};
    constexpr std::size_t longestHead = 12;
    ByteReader reader(window_.At(next_, longestHead));
    Record record;
    if (version_ == 2) reader.Skip(1);
    record.type = reader.U8();
    if (version_ == 2) ReadLength(reader);
    record.length = ReadLength(reader);
    if (reader.WasCut()) return {};
    record.offset = next_ + reader.Position();
    next_ = record.offset + record.length;
    return record;
  }

  // The first bytes of a record's content, at most `count`.
  ByteReader Content(const Record& record, std::size_t count) {
    return ByteReader(
        window_.At(record.offset, static_cast<std::size_t>(std::min<std::uint64_t>(count, record.length))));
  }

 private:
  FileWindow window_;
  std::uint64_t next_;
  int version_;
  int count_ = 0;
};

struct Bitmap {
  Size size;
  int depth = 0;
  bool packed = true;
  int version = 1;
  std::uint64_t offset = 0;  // of the rows in the file
  std::uint64_t length = 0;
  bool hasMap = false;
  Palette palette{};
};

// Version 1 of the colour map has three bytes an entry, version 2 four.
void ReadColourMap(ByteReader reader, int version, Bitmap& bitmap) {
  const std::size_t first = reader.U16Le(), count = reader.U16Le();
  for (std::size_t i = first; i < std::min<std::size_t>(first + count, 256); ++i) {
    const unsigned red = reader.U8(), green = reader.U8(), blue = reader.U8();
    if (version == 2) reader.Skip(1);
    if (reader.WasCut()) return;
    bitmap.palette[i] = Rgb(red, green, blue);
    bitmap.hasMap = true;
  }
}

void ReadBitmapHead1(ByteReader& reader, bool placed, Bitmap& bitmap) {
  if (placed) reader.Skip(10);  // rotation and the corners on the page
  bitmap.size.width = reader.U16Le();
  bitmap.size.height = reader.U16Le();
  bitmap.depth = reader.U16Le();
  reader.Skip(4);  // resolution
}

void ReadBitmapHead2(ByteReader& reader, Bitmap& bitmap) {
  bitmap.size.width = reader.U16Le();
  bitmap.size.height = reader.U16Le();
  constexpr std::array<int, 9> depths = {0, 1, 2, 4, 8, 0, 0, 0, 24};
  const std::size_t code = reader.U8();
  bitmap.depth = code < depths.size() ? depths[code] : 0;
  const unsigned compression = reader.U8();
  if (compression > 1) Refuse("WPG: unknown compression");
  bitmap.packed = compression == 1;
}

// Walks to the first bitmap and gathers what it needs.
Bitmap FindBitmap(const PictureData& data, std::uint64_t start, int version) {
  enum Type : unsigned {
    Bitmap1 = 0x0B,
    ColourMap1 = 0x0E,
    End1 = 0x10,
    PlacedBitmap1 = 0x14,
    ColourMap2 = 0x0C,
    Bitmap2 = 0x0E
  };
  constexpr std::size_t longestContent = 4 + 4 * 256;
  Bitmap bitmap;
  bitmap.version = version;
  bitmap.palette = VgaPalette();
  RecordWalk walk(data, start, version);
  while (const auto record = walk.Next()) {
    ByteReader reader = walk.Content(*record, longestContent);
    if (version == 1 && record->type == End1) break;
    if (record->type == (version == 1 ? ColourMap1 : ColourMap2)) {
      ReadColourMap(reader, version, bitmap);
      continue;
    }
    if (version == 1 && (record->type == Bitmap1 || record->type == PlacedBitmap1)) {
      ReadBitmapHead1(reader, record->type == PlacedBitmap1, bitmap);
    } else if (version == 2 && record->type == Bitmap2) {
      ReadBitmapHead2(reader, bitmap);
    } else {
      continue;
    }
    if (reader.WasCut() || bitmap.size.width == 0 || bitmap.size.height == 0) continue;
    bitmap.offset = record->offset + reader.Position();
    bitmap.length = record->length - reader.Position();
    return bitmap;
  }
  Refuse("WPG: there is no bitmap in this drawing");
}

// Without a colour map, 2 bits are the colours of the CGA and more bits those of the VGA. Bitmaps of 1 bit
// are black and white; version 1 does not even look at the map.
void ChooseDefaultColours(Bitmap& bitmap) {
  const bool ignoresMap = bitmap.depth == 1 && bitmap.version == 1;
  if (bitmap.hasMap && !ignoresMap) return;
  if (bitmap.depth == 1) {
    bitmap.palette = TwoColours(blackPixel, whitePixel);
  } else if (bitmap.depth == 2) {
    std::ranges::copy(CgaColours(1, true, 0), bitmap.palette.begin());
  }
}

class WpgDecoder final : public FileDecoder {
 public:
  WpgDecoder(const PictureData& data, const Bitmap& bitmap, const OpenOptions& options)
      : FileDecoder(data, options, bitmap.size, bitmap.depth, "WPG"), bitmap_(bitmap) {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> content = Data().Stretch(
        bitmap_.offset,
        static_cast<std::size_t>(std::min<std::uint64_t>(bitmap_.length, PictureData::MostBytes)));
    Pixels pixels = UnfilledPixels();
    BlankFrom(pixels, DecodeRows(ByteReader(content), pixels));
    return pixels;
  }

 private:
  int DecodeRows(ByteReader reader, Pixels& pixels) const {
    if (bitmap_.packed && bitmap_.version == 1) {
      Wpg1Rows rows(reader);
      return UnpackRows([&](std::span<std::uint8_t> row) { return rows.Next(row); }, pixels);
    }
    if (bitmap_.packed) {
      Wpg2Rows rows(reader);
      return UnpackRows([&](std::span<std::uint8_t> row) { return rows.Next(row); }, pixels);
    }
    const auto plain = [&](std::span<std::uint8_t> row) {
      const Bytes bytes = reader.Take(row.size());
      std::ranges::copy(bytes, row.begin());
      return bytes.size() == row.size();
    };
    return UnpackRows(plain, pixels);
  }

  // Returns how many rows were whole.
  template <class NextRow>
  int UnpackRows(NextRow next, Pixels& pixels) const {
    std::vector<std::uint8_t> row(RowBytes(facts_.size.width, bitmap_.depth));
    const PackedRows unpacker(std::min(bitmap_.depth, 8), bitmap_.palette);
    for (int y = 0; y < facts_.size.height; ++y) {
      if (!next(row)) return y;
      const auto target = pixels.Row(y);
      if (bitmap_.depth <= 8) {
        unpacker.Unpack(row, target);
        continue;
      }
      const std::uint8_t* from = row.data();
      for (auto& pixel : target) pixel = Rgb(from[0], from[1], from[2]), from += 3;
    }
    return facts_.size.height;
  }

  Bitmap bitmap_;
};

}  // namespace

Match MatchWpg(const PictureData& data) {
  return ByteReader(data.Head()).U32Be() == signature ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenWpg(const PictureData& data, const OpenOptions& options) {
  ByteReader reader(data.Head());
  reader.Skip(4);
  const std::uint32_t start = reader.U32Le();
  reader.Skip(1);
  if (reader.U8() != graphicsFile) Refuse("WPG: this is another kind of WordPerfect file");
  const int version = reader.U8();
  reader.Skip(1);
  const bool encrypted = reader.U16Le() != 0;
  if (reader.WasCut()) Refuse("WPG: the header is cut short");
  if (version != 1 && version != 2) Refuse("WPG: unknown version");
  if (encrypted) Refuse("WPG: the file is encrypted");
  // Where the first record can not be, it is taken to stand right behind the header.
  const std::uint64_t first = start < headerSize || start >= data.Size() ? headerSize : start;
  Bitmap bitmap = FindBitmap(data, first, version);
  constexpr std::array<int, 5> depths = {1, 2, 4, 8, 24};
  if (std::ranges::find(depths, bitmap.depth) == depths.end()) Refuse("WPG: this depth does not occur");
  ChooseDefaultColours(bitmap);
  return std::make_unique<WpgDecoder>(data, bitmap, options);
}

}  // namespace lumidex
