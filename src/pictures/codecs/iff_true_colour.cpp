#include "pictures/codecs/iff_true_colour.h"

#include <algorithm>
#include <array>
#include <span>

#include "pictures/byte_reader.h"
#include "pictures/palettes.h"

namespace lumidex {
namespace {

std::span<std::uint32_t> AllOf(Pixels& pixels) {
  return {pixels.Data(), pixels.ByteCount() / sizeof(std::uint32_t)};
}

// Where in a pixel's bytes each component stands.
class DeepLayout {
 public:
  explicit DeepLayout(const std::vector<DeepElement>& elements) : bytes_(elements.size()) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (elements[i].kind >= DeepElement::Red && elements[i].kind <= DeepElement::Alpha)
        places_[elements[i].kind - DeepElement::Red] = static_cast<int>(i);
    }
  }

  std::size_t PixelBytes() const { return bytes_; }
  // Colours that are missing are 0, alpha that is missing is full.
  std::uint32_t Join(Bytes pixel) const {
    const auto component = [&](std::size_t which, std::uint32_t missing) -> std::uint32_t {
      return places_[which] < 0 ? missing : pixel[static_cast<std::size_t>(places_[which])];
    };
    return component(3, 255) << 24 | component(0, 0) << 16 | component(1, 0) << 8 | component(2, 0);
  }

 private:
  std::size_t bytes_;
  std::array<int, 4> places_{-1, -1, -1, -1};  // red, green, blue, alpha
};

}  // namespace

int UnpackColourRuns(Bytes body, bool wide, Pixels& pixels) {
  ByteReader reader(body);
  std::span<std::uint32_t> rest = AllOf(pixels);
  while (!rest.empty() && !reader.AtEnd()) {
    const std::uint32_t code = wide ? reader.U32Be() : reader.U16Be();
    std::size_t count = code & (wide ? 127U : 7U);
    if (count == 0) count = reader.U8();
    if (count == 0) count = reader.U16Be();
    if (reader.WasCut()) break;
    const auto four = [code](unsigned shift) { return (code >> shift & 15) * 17; };
    const std::uint32_t colour = wide ? 0xFF000000U | code >> 8 : Rgb(four(12), four(8), four(4));
    count = std::min(count, rest.size());
    std::ranges::fill(rest.first(count), colour);
    rest = rest.subspan(count);
  }
  return static_cast<int>((AllOf(pixels).size() - rest.size()) / static_cast<std::size_t>(pixels.Width()));
}

int UnpackDeepPixels(Bytes body, const std::vector<DeepElement>& elements, bool packed, Pixels& pixels) {
  const DeepLayout layout(elements);
  ByteReader reader(body);
  std::span<std::uint32_t> rest = AllOf(pixels);
  while (!rest.empty() && reader.Remaining() >= layout.PixelBytes()) {
    const unsigned code = packed ? reader.U8() : 127;
    const bool repeats = code >= 128;
    const std::size_t count = std::min<std::size_t>(repeats ? 257 - code : code + 1, rest.size());
    const Bytes bytes = reader.Take((repeats ? 1 : count) * layout.PixelBytes());
    const std::size_t stored = bytes.size() / layout.PixelBytes();
    for (std::size_t i = 0; i < stored; ++i)
      rest[i] = layout.Join(bytes.subspan(i * layout.PixelBytes(), layout.PixelBytes()));
    if (repeats && stored == 1) std::ranges::fill(rest.first(count), rest[0]);
    rest = rest.subspan(repeats ? stored * count : stored);
  }
  return static_cast<int>((AllOf(pixels).size() - rest.size()) / static_cast<std::size_t>(pixels.Width()));
}

}  // namespace lumidex
