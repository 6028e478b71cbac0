#include "pictures/codecs/mac.h"

#include <algorithm>

#include "pictures/byte_reader.h"
#include "pictures/file_decoder.h"
#include "pictures/pack_bits.h"
#include "pictures/planes.h"

namespace lumidex {
namespace {

constexpr Size macSize = {576, 720};
constexpr std::size_t rowBytes = 576 / 8;
constexpr std::size_t wrapperBytes = 128;
constexpr std::size_t headerBytes = 512;

// MacBinary: a zero, the length of the name, and the file's type as the Macintosh kept it. A bare file can
// not look like this, as its first two bytes are zeros.
bool IsWrapped(Bytes head) {
  constexpr std::string_view type = "PNTG";
  return head.size() >= wrapperBytes && head[0] == 0 && head[1] >= 1 && head[1] <= 63 &&
         std::ranges::equal(head.subspan(65, 4), type, {}, {}, [](char c) { return std::uint8_t(c); });
}

class MacDecoder final : public FileDecoder {
 public:
  MacDecoder(const PictureData& data, const OpenOptions& options)
      : FileDecoder(data, options, macSize, 1, "MAC") {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().All();
    ByteReader reader(file);
    if (IsWrapped(file)) reader.Skip(wrapperBytes);
    reader.Skip(headerBytes);
    // Unpacked in one go, since runs may cross rows.
    std::vector<std::uint8_t> unpacked(rowBytes * 720);
    unpacked.resize(PackBits(reader).Read(unpacked));
    Pixels pixels = UnfilledPixels();
    UnpackRows(unpacked, rowBytes, PackedRows(1, TwoColours(whitePixel, blackPixel)), pixels);
    return pixels;
  }
};

}  // namespace

Match MatchMac(const PictureData& data) {
  if (IsWrapped(data.Head())) return Match::Sure;
  const std::uint32_t version = ByteReader(data.Head()).U32Be();
  const bool known = version == 0 || version == 2 || version == 3;
  return known && data.Size() > headerBytes ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenMac(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<MacDecoder>(data, options);
}

}  // namespace lumidex
