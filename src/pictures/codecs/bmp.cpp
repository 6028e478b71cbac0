#include "pictures/codecs/bmp.h"

#include <algorithm>

#include "pictures/byte_reader.h"
#include "pictures/dib.h"
#include "pictures/file_decoder.h"
#include "pictures/refusal.h"
#include "pictures/row_target.h"

namespace lumidex {
namespace {

constexpr std::size_t FileHeaderBytes = 14;
constexpr std::size_t ArrayHeaderBytes = 14;

bool StartsWith(Bytes bytes, std::string_view text) {
  return bytes.size() >= text.size() && std::equal(text.begin(), text.end(), bytes.begin());
}

// Headers of known size followed by one plane and a known depth: all that a bitmap without file header shows.
bool LooksLikeDib(Bytes bytes) {
  ByteReader reader(bytes);
  const std::uint32_t headerBytes = reader.U32Le();
  switch (headerBytes) {
    case 12:
      reader.Skip(4);
      break;
    case 16:
    case 40:
    case 52:
    case 56:
    case 64:
    case 108:
    case 124:
      reader.Skip(8);
      break;
    default:
      return false;
  }
  const int planes = reader.U16Le();
  const int bits = reader.U16Le();
  return !reader.WasCut() && planes == 1 && bits <= 64;
}

struct Places {
  std::size_t header = 0;
  std::size_t pixels = 0;  // from the start of the file, 0 when not stated
};

Places FindPlaces(Bytes head) {
  Places places;
  if (StartsWith(head, "BA")) {
    head = head.subspan(std::min(ArrayHeaderBytes, head.size()));
    places.header = ArrayHeaderBytes;
    if (!StartsWith(head, "BM")) Refuse("The bitmap array holds no bitmap");
  }
  if (StartsWith(head, "BM")) {
    ByteReader reader(head);
    reader.Skip(10);
    places.pixels = reader.U32Le();
    places.header += FileHeaderBytes;
  }
  return places;
}

class BmpDecoder final : public FileDecoder {
 public:
  BmpDecoder(const PictureData& data, const OpenOptions& options) : FileDecoder(data, options, "BMP") {
    const Places places = FindPlaces(data.Head());
    DibOptions dibOptions;
    dibOptions.limits = options.limits;
    dibOptions.fileSize = data.Size();
    dibOptions.headerPlace = places.header;
    // An offset beyond the file's end is a slip of the writer; the pixels then follow the colours.
    if (places.pixels > places.header && places.pixels < data.Size()) {
      dibOptions.pixelOffset = places.pixels - places.header;
    }
    header_ = ReadDibHeader(data.Head().subspan(std::min(places.header, data.Head().size())), dibOptions);
    pixelOffset_ = places.header + header_.pixelOffset;
    if (header_.coding == DibCoding::Jpeg || header_.coding == DibCoding::Png) {
      file_ =
          OpenDibFile(header_.coding, StretchOf(data.SharedSource(), pixelOffset_, data.Size()), Limits());
      facts_ = file_->Facts();
      facts_.format = "BMP";
      return;
    }
    SetShape(header_.size, header_.bitsPerPixel);
    facts_.reducible = header_.coding == DibCoding::Plain || header_.coding == DibCoding::BitFields;
  }

  Pixels Decode(const DecodeRequest& request) const override {
    if (file_) return file_->Decode(request);
    std::vector<std::uint8_t> buffer;
    const auto read = [&](std::uint64_t offset, std::size_t count) -> Bytes {
      const std::uint64_t start = pixelOffset_ + offset;
      const std::uint64_t left = start < Data().Size() ? Data().Size() - start : 0;
      buffer.resize(static_cast<std::size_t>(std::min<std::uint64_t>(count, left)));
      buffer.resize(Data().Source().ReadAt(start, buffer));
      return buffer;
    };
    if (facts_.reducible) return DecodeDibRows(header_, read, Limits(), SizeToMake(request));
    return DecodeDib(header_, read(0, static_cast<std::size_t>(Data().Size())), Limits());
  }

 private:
  DibHeader header_;
  std::unique_ptr<Decoder> file_;  // of a bitmap whose pixels are a JPEG or PNG file
  std::uint64_t pixelOffset_ = 0;
};

}  // namespace

Match MatchBmp(const PictureData& data) {
  const Bytes head = data.Head();
  // Arrays of icons and pointers are taken to be refused by name.
  if (StartsWith(head, "BA")) {
    return StartsWith(head.subspan(std::min(ArrayHeaderBytes, head.size())), "BM") ? Match::Sure
                                                                                   : Match::Maybe;
  }
  if (StartsWith(head, "BM")) {
    ByteReader reader(head);
    reader.Skip(FileHeaderBytes);
    const std::uint32_t headerBytes = reader.U32Le();
    return headerBytes >= 12 && headerBytes <= 256 ? Match::Sure : Match::Maybe;
  }
  return LooksLikeDib(head) ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenBmp(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<BmpDecoder>(data, options);
}

}  // namespace lumidex
