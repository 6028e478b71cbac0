#include "pictures/dib.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "pictures/byte_reader.h"
#include "pictures/codecs/jpeg.h"
#include "pictures/codecs/png.h"
#include "pictures/dib_huffman.h"
#include "pictures/dib_row.h"
#include "pictures/dib_run_length.h"
#include "pictures/refusal.h"
#include "pictures/row_target.h"

namespace lumidex {
namespace {

constexpr std::uint32_t Core = 12;  // OS/2 1.x

// OS/2 2.x headers may stop anywhere from 16 bytes on; 40 and the later sizes are Windows'.
bool IsOs2(std::uint32_t headerBytes) {
  return (headerBytes >= 16 && headerBytes < 40) || headerBytes == 64;
}

bool IsDepth(int bits) {
  return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32 ||
         bits == 64;
}

DibCoding CodingOf(std::uint32_t compression, int bits, bool os2) {
  switch (compression) {
    case 0:
      return DibCoding::Plain;
    case 1:
      if (bits == 8) return DibCoding::Rle8;
      break;
    case 2:
      if (bits == 4) return DibCoding::Rle4;
      break;
    case 3:
      if (os2 && bits == 1) return DibCoding::Huffman;
      if (!os2 && (bits == 16 || bits == 32)) return DibCoding::BitFields;
      break;
    case 4:
      if (os2 && bits == 24) return DibCoding::Rle24;
      if (!os2) return DibCoding::Jpeg;
      break;
    case 5:
      if (!os2) return DibCoding::Png;
      break;
    case 6:
      if (!os2 && (bits == 16 || bits == 32)) return DibCoding::BitFields;
      break;
    default:
      break;
  }
  Refuse("The bitmap's compression is not known");
}

// Fields in the order of the file; those a short header leaves out are 0.
struct Fields {
  std::uint32_t headerBytes = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  int bits = 0;
  std::uint32_t compression = 0;
  std::uint32_t coloursUsed = 0;
  std::array<std::uint32_t, 4> masks{};
};

Fields ReadFields(Bytes bytes) {
  ByteReader reader(bytes);
  Fields fields;
  fields.headerBytes = reader.U32Le();
  if (fields.headerBytes == Core) {
    fields.width = reader.U16Le();
    fields.height = reader.U16Le();
    reader.Skip(2);
    fields.bits = reader.U16Le();
    if (reader.WasCut()) Refuse("The bitmap's header is cut");
    return fields;
  }
  if (fields.headerBytes < 16 || fields.headerBytes > 0x10000)
    Refuse("The bitmap's header has no known size");
  reader = ByteReader(bytes.first(std::min<std::size_t>(bytes.size(), fields.headerBytes)));
  reader.Skip(4);
  fields.width = reader.S32Le();
  fields.height = reader.S32Le();
  reader.Skip(2);
  fields.bits = reader.U16Le();
  if (reader.WasCut()) Refuse("The bitmap's header is cut");
  fields.compression = reader.U32Le();
  reader.Skip(12);
  fields.coloursUsed = reader.U32Le();
  reader.Skip(4);
  if (!IsOs2(fields.headerBytes) && fields.headerBytes >= 52) {
    for (std::size_t i = 0; i < (fields.headerBytes >= 56 ? 4U : 3U); ++i) fields.masks[i] = reader.U32Le();
  }
  return fields;
}

// Reads what stands between the header and the pixels.
class Tables {
 public:
  Tables(Bytes bytes, const Fields& fields, const DibOptions& options)
      : reader_(bytes), fields_(fields), options_(options) {
    reader_.Seek(fields.headerBytes);
  }

  void Read(DibHeader& header) {
    if (header.coding == DibCoding::BitFields && fields_.headerBytes < 52) {
      const std::size_t count = fields_.compression == 6 ? 4 : 3;
      for (std::size_t i = 0; i < count; ++i) header.masks[i] = reader_.U32Le();
    } else if (header.coding == DibCoding::BitFields) {
      header.masks = fields_.masks;
    }
    UseDefaultMasks(header);
    header.colours = BlackPalette();
    const bool stated = IsOffsetBelieved(header);
    const std::uint64_t count = ColourCount(stated);
    for (std::size_t i = 0; i < std::min<std::uint64_t>(count, 256); ++i) header.colours[i] = Colour();
    const std::uint64_t rest = count > 256 ? (count - 256) * EntryBytes() : 0;
    const std::uint64_t end = reader_.Position() + rest;
    header.pixelOffset = stated ? options_.pixelOffset : static_cast<std::size_t>(end);
  }

 private:
  void UseDefaultMasks(DibHeader& header) const {
    const bool none = (header.masks[0] | header.masks[1] | header.masks[2]) == 0;
    if (header.coding != DibCoding::Plain && !none) return;
    if (header.bitsPerPixel == 16) header.masks = {0x7C00, 0x03E0, 0x001F, 0};
    if (header.bitsPerPixel == 32) header.masks = {0xFF0000, 0xFF00, 0xFF, 0};
  }

  bool IsIndexed() const { return fields_.bits >= 1 && fields_.bits <= 8; }

  // The colours of a bitmap that does not count them.
  std::uint64_t UsualCount() const { return IsIndexed() ? std::uint64_t{1} << fields_.bits : 0; }

  std::uint64_t EntryBytes() const {
    if (options_.outsideColours) return 2;
    return fields_.headerBytes == Core ? 3 : 4;
  }

  // A place of the pixels inside the masks, or that leaves no room for a single colour, is a slip of the
  // writer where the file is long enough for masks, colours and pixels.
  bool IsOffsetBelieved(const DibHeader& header) const {
    if (options_.pixelOffset < fields_.headerBytes) return false;
    if (options_.pixelOffset >= reader_.Position() + (IsIndexed() ? EntryBytes() : 0)) return true;
    const std::uint64_t colours =
        fields_.coloursUsed == 0 ? UsualCount() : std::min<std::uint64_t>(fields_.coloursUsed, UsualCount());
    const bool plain = header.coding == DibCoding::Plain || header.coding == DibCoding::BitFields;
    const std::uint64_t pixels =
        plain ? header.RowBytes() * static_cast<std::uint64_t>(header.size.height) : 0;
    return options_.headerPlace + reader_.Position() + colours * EntryBytes() + pixels > options_.fileSize;
  }

  // A table may be shorter than the depth allows: no entry stands beyond the place of the pixels.
  std::uint64_t ColourCount(bool isOffsetBelieved) const {
    std::uint64_t count = fields_.coloursUsed == 0 ? UsualCount() : fields_.coloursUsed;
    // More than the file can hold is as good as nothing said.
    const std::uint64_t fileSize = std::max<std::uint64_t>(options_.fileSize, reader_.Size());
    if (reader_.Position() + count * EntryBytes() > fileSize) count = std::min(count, UsualCount());
    if (isOffsetBelieved && options_.pixelOffset > reader_.Position()) {
      count = std::min<std::uint64_t>(count, (options_.pixelOffset - reader_.Position()) / EntryBytes());
    }
    return count;
  }

  std::uint32_t Colour() {
    if (options_.outsideColours) {
      const std::size_t position = reader_.U16Le();
      const auto colours = *options_.outsideColours;
      return 0xFF000000U | (position < colours.size() ? colours[position] : 0U);
    }
    const std::uint32_t blue = reader_.U8(), green = reader_.U8(), red = reader_.U8();
    if (fields_.headerBytes != Core) reader_.Skip(1);
    return 0xFF000000U | red << 16 | green << 8 | blue;
  }

  ByteReader reader_;
  const Fields& fields_;
  const DibOptions& options_;
};

}  // namespace

std::size_t DibHeader::RowBytes() const {
  return (static_cast<std::size_t>(size.width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
}

DibHeader ReadDibHeader(Bytes bytes, const DibOptions& options) {
  const Fields fields = ReadFields(bytes);
  DibHeader header;
  header.bitsPerPixel = fields.bits;
  header.coding = CodingOf(fields.compression, fields.bits, IsOs2(fields.headerBytes));
  const bool file = header.coding == DibCoding::Jpeg || header.coding == DibCoding::Png;
  if (!file && !IsDepth(fields.bits)) Refuse("The bitmap's depth is not known");
  header.topDown = fields.height < 0;
  const std::int64_t height = std::abs(fields.height);
  header.size = CheckedSize(fields.width, options.icon ? height / 2 : height, options.limits,
                            std::max<std::uint64_t>(options.fileSize, bytes.size()));
  Tables(bytes, fields, options).Read(header);
  return header;
}

Pixels DecodeDibRows(const DibHeader& header, const DibPixelSource& source, const PictureLimits& limits,
                     Size wanted) {
  const bool alpha = header.masks[3] != 0 || header.bitsPerPixel == 64;
  RowTarget target(
      header.size, alpha ? PixelFormat::Argb : PixelFormat::Rgb,
      {.wanted = wanted, .order = header.topDown ? RowOrder::TopDown : RowOrder::BottomUp, .limits = limits});
  const DibRowReader row(header);
  const std::size_t rowBytes = header.RowBytes();
  const int height = header.size.height;
  const int band = static_cast<int>(std::clamp<std::size_t>((std::size_t{1} << 18) / rowBytes, 1, 4096));
  for (int first = 0; first < height; first += band) {
    const int count = std::min(band, height - first);
    Bytes bytes =
        source(static_cast<std::uint64_t>(first) * rowBytes, rowBytes * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      const Bytes here = bytes.first(std::min(rowBytes, bytes.size()));
      bytes = bytes.subspan(here.size());
      row.Read(here, target.Row());
      target.Add();
    }
  }
  Pixels pixels = target.Finish(blankPixel);
  if (alpha) DeclareOpaqueIfSo(pixels);
  return pixels;
}

std::unique_ptr<Decoder> OpenDibFile(DibCoding coding, std::shared_ptr<const ByteSource> pixels,
                                     const PictureLimits& limits) {
  OpenOptions options;
  options.limits = limits;
  const PictureData data(std::move(pixels), {});
  return coding == DibCoding::Jpeg ? OpenJpeg(data, options) : OpenPng(data, options);
}

Pixels DecodeDib(const DibHeader& header, Bytes bytes, const PictureLimits& limits) {
  switch (header.coding) {
    case DibCoding::Plain:
    case DibCoding::BitFields:
      return DecodeDibRows(
          header,
          [bytes](std::uint64_t offset, std::size_t count) {
            const std::size_t start = std::min<std::uint64_t>(offset, bytes.size());
            return bytes.subspan(start, std::min(count, bytes.size() - start));
          },
          limits);
    case DibCoding::Rle4:
    case DibCoding::Rle8:
    case DibCoding::Rle24: {
      Pixels pixels = Pixels::Make(header.size, PixelFormat::Argb, 0, limits);
      DecodeDibRunLength(header, bytes, pixels);
      DeclareOpaqueIfSo(pixels);
      return pixels;
    }
    case DibCoding::Huffman: {
      Pixels pixels = Pixels::Make(header.size, PixelFormat::Rgb, blankPixel, limits);
      DecodeDibHuffman(header, bytes, pixels);
      return pixels;
    }
    case DibCoding::Jpeg:
    case DibCoding::Png: {
      auto source = std::make_shared<MemorySource>(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
      try {
        return OpenDibFile(header.coding, std::move(source), limits)->Decode({});
      } catch (const RunTimeError& error) {
        if (error.Number() == ErrorNumber::OutOfMemory) throw;
        return Pixels::Make(header.size, PixelFormat::Rgb, blankPixel, limits);
      }
    }
  }
  return {};
}

}  // namespace lumidex
