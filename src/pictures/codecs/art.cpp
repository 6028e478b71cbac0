#include "pictures/codecs/art.h"

#include <algorithm>
#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/pack_bits.h"
#include "pictures/planes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

struct Header {
  Size size;
  bool packed = false;  // the high-resolution form

  std::size_t DataStart() const { return packed ? 12 : 8; }
};

// Rows of the plain form are filled up to words.
std::size_t PlainRowBytes(int width) {
  return (static_cast<std::size_t>(width) + 15) / 16 * 2;
}

std::optional<Header> ReadHighResolution(ByteReader reader) {
  reader.Skip(2);
  const int horizontalDpi = reader.U16Le(), verticalDpi = reader.U16Le();
  Header header{{reader.U16Le(), reader.U16Le()}, true};
  if (reader.U16Le() != 1 || horizontalDpi == 0 || verticalDpi == 0) return std::nullopt;
  return header;
}

// The plain form gives the two corners; the first one is 0, 0 in all but a few files.
std::optional<Header> ReadPlain(ByteReader reader, std::uint64_t fileSize) {
  const int left = reader.U16Le(), right = reader.U16Le(), top = reader.U16Le(), bottom = reader.U16Le();
  const auto fits = [fileSize](const Header& header) {
    if (header.size.width < 1 || header.size.height < 1) return false;
    // Some writers add a row.
    const std::uint64_t rowBytes = PlainRowBytes(header.size.width);
    const std::uint64_t length =
        header.DataStart() + rowBytes * static_cast<std::uint64_t>(header.size.height);
    return fileSize == length || fileSize == length + rowBytes;
  };
  const Header whole{{right, bottom}}, between{{right - left, bottom - top}};
  if (left == 0 && top == 0 && right > 0 && bottom > 0) return whole;
  if (fits(between)) return between;
  // Other readers take the second corner for the size, so there may be writers that mean it.
  if (fits(whole)) return whole;
  return std::nullopt;
}

// Neither form has a signature, so numbers that can not be a size are the only sign of a foreign file.
std::optional<Header> ReadHeader(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() <= 8 || (head[0] == 'J' && head[1] == 'G')) return std::nullopt;
  const bool marked = head[0] == 0xFF && head[1] == 0xFF;
  return marked ? ReadHighResolution(ByteReader(head)) : ReadPlain(ByteReader(head), data.Size());
}

class ArtDecoder final : public FileDecoder {
 public:
  ArtDecoder(const PictureData& data, const OpenOptions& options, const Header& header)
      : FileDecoder(data, options, header.size, 1, "ART"), header_(header) {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    reader.Skip(header_.DataStart());
    Pixels pixels = UnfilledPixels();
    const PackedRows rows(1, TwoColours(blackPixel, whitePixel));
    if (header_.packed) {
      DecodePacked(reader, rows, pixels);
    } else {
      UnpackRows(reader.Take(reader.Remaining()), PlainRowBytes(pixels.Width()), rows, pixels);
    }
    return pixels;
  }

 private:
  // The length of a row is told nowhere: it follows from how much there is, up to three bytes of filling.
  static void DecodePacked(const ByteReader& reader, const PackedRows& rows, Pixels& pixels) {
    const std::size_t height = static_cast<std::size_t>(pixels.Height());
    const std::size_t least = RowBytes(pixels.Width(), 1);
    std::vector<std::uint8_t> unpacked((least + 3) * height);
    unpacked.resize(PackBits(reader).Read(unpacked));
    UnpackRows(unpacked, std::max(least, unpacked.size() / height), rows, pixels);
  }

  Header header_;
};

}  // namespace

Match MatchArt(const PictureData& data) {
  return ReadHeader(data) ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenArt(const PictureData& data, const OpenOptions& options) {
  const std::optional<Header> header = ReadHeader(data);
  if (!header) Refuse("ART: the header is no good");
  return std::make_unique<ArtDecoder>(data, options, *header);
}

}  // namespace lumidex
