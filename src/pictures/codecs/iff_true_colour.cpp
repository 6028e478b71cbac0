#include "pictures/codecs/iff_true_colour.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

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

// One component of one row of steps; false when the input ended before its last pixel.
bool ReadSteps(ByteReader& reader, const DeepSteps& steps, std::span<std::uint8_t> values) {
  int pending = -1;  // the half byte still to come
  const auto half = [&]() -> unsigned {
    if (pending >= 0) return static_cast<unsigned>(std::exchange(pending, -1));
    const unsigned byte = reader.U8();
    pending = static_cast<int>(byte & 15);
    return byte >> 4;
  };
  std::uint8_t value = 0;
  for (std::size_t x = 0; x < values.size();) {
    const int step = steps[half()];
    if (reader.WasCut()) return false;
    value = static_cast<std::uint8_t>(value + step);
    const std::size_t count = step != 0 ? 1 : std::min<std::size_t>(half() + 1, values.size() - x);
    std::ranges::fill(values.subspan(x, count), value);
    x += count;
  }
  return true;
}

}  // namespace

int UnpackDeepSteps(Bytes body, const std::vector<DeepElement>& elements, const DeepSteps& steps,
                    Pixels& pixels) {
  const DeepLayout layout(elements);
  ByteReader reader(body);
  const std::size_t width = static_cast<std::size_t>(pixels.Width());
  std::vector<std::uint8_t> line(width), row(width * elements.size());
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (!ReadSteps(reader, steps, line)) return y;
      for (std::size_t x = 0; x < width; ++x) row[x * elements.size() + i] = line[x];
    }
    const auto target = pixels.Row(y);
    for (std::size_t x = 0; x < width; ++x)
      target[x] = layout.Join(Bytes(row).subspan(x * elements.size(), elements.size()));
  }
  return pixels.Height();
}

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
