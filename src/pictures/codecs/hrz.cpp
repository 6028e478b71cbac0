#include "pictures/codecs/hrz.h"

#include <algorithm>
#include <array>

#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/planes.h"

namespace lumidex {
namespace {

constexpr Size hrzSize = {256, 240};
constexpr std::size_t hrzBytes = 256 * 240 * 3;

class HrzDecoder final : public FileDecoder {
 public:
  HrzDecoder(const PictureData& data, const OpenOptions& options)
      : FileDecoder(data, options, hrzSize, 18, "HRZ") {}

  Pixels Decode(const DecodeRequest&) const override {
    const std::vector<std::uint8_t> file = Data().Stretch(0, hrzBytes);
    // Components have six bits; larger values show that the writer gave eight. A 64 alone does not: a common
    // writer rounds up to it, and readers agree on taking its low six bits.
    const bool wide = std::ranges::any_of(file, [](std::uint8_t value) { return value > 64; });
    std::array<std::uint32_t, 256> component{};
    for (unsigned value = 0; value < 256; ++value) component[value] = wide ? value : Widen6(value);

    Pixels pixels = UnfilledPixels();
    const std::size_t whole = file.size() / 3;
    for (std::size_t i = 0; i < whole; ++i) {
      const std::uint8_t* pixel = &file[i * 3];
      pixels.Data()[i] = Rgb(component[pixel[0]], component[pixel[1]], component[pixel[2]]);
    }
    BlankFrom(pixels, static_cast<int>(whole / 256), whole % 256);
    return pixels;
  }
};

}  // namespace

// There is no header at all: the name decides, and the length must allow it. Transfers by old protocols
// filled files up to blocks.
Match MatchHrz(const PictureData& data) {
  constexpr std::uint64_t block = 1024;
  return data.Size() >= 3 && data.Size() <= hrzBytes + block ? Match::Maybe : Match::No;
}

std::unique_ptr<Decoder> OpenHrz(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<HrzDecoder>(data, options);
}

}  // namespace lumidex
