#include "gallery/encoders/indexed.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "pictures/pixels.h"

namespace lumidex {
namespace {

using Channels = std::array<int, 3>;  // red, green, blue

Channels Split(std::uint32_t word) {
  return {static_cast<int>(word >> 16 & 255), static_cast<int>(word >> 8 & 255),
          static_cast<int>(word & 255)};
}

std::uint32_t Join(const Channels& channels) {
  return 0xFF000000U | static_cast<std::uint32_t>(channels[0]) << 16 |
         static_cast<std::uint32_t>(channels[1]) << 8 | static_cast<std::uint32_t>(channels[2]);
}

// A box of the colour space: a stretch of the sorted colours, to be cut across its longest side.
struct Box {
  std::span<Channels> colours;
  std::size_t longest = 0;
  int length = 0;

  explicit Box(std::span<Channels> inside) : colours(inside) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      const auto [low, high] =
          std::ranges::minmax(colours, {}, [channel](const Channels& colour) { return colour[channel]; });
      if (high[channel] - low[channel] <= length) continue;
      length = high[channel] - low[channel];
      longest = channel;
    }
  }

  std::uint32_t Average() const {
    std::array<std::int64_t, 3> sums{};
    for (const Channels& colour : colours)
      for (std::size_t channel = 0; channel < 3; ++channel) sums[channel] += colour[channel];
    Channels average{};
    const auto count = static_cast<std::int64_t>(colours.size());
    for (std::size_t channel = 0; channel < 3; ++channel)
      average[channel] = static_cast<int>((sums[channel] + count / 2) / count);
    return Join(average);
  }
};

std::uint8_t Nearest(const std::vector<Channels>& palette, const Channels& wanted) {
  std::size_t best = 0;
  int least = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const int red = palette[i][0] - wanted[0], green = palette[i][1] - wanted[1],
              blue = palette[i][2] - wanted[2];
    const int distance = 3 * red * red + 6 * green * green + blue * blue;
    if (distance >= least) continue;
    least = distance;
    best = i;
  }
  return static_cast<std::uint8_t>(best);
}

}  // namespace

Colours BlackAndWhite() {
  return {0xFF000000, 0xFFFFFFFF};
}

Colours VgaColours() {
  return {0xFF000000, 0xFF800000, 0xFF008000, 0xFF808000, 0xFF000080, 0xFF800080, 0xFF008080, 0xFFC0C0C0,
          0xFF808080, 0xFFFF0000, 0xFF00FF00, 0xFFFFFF00, 0xFF0000FF, 0xFFFF00FF, 0xFF00FFFF, 0xFFFFFFFF};
}

Colours GreyColours(int count) {
  Colours palette;
  for (int i = 0; i < count; ++i) {
    const int level = 255 * i / (count - 1);
    palette.push_back(Join({level, level, level}));
  }
  return palette;
}

Colours MedianCut(const Pixels& pixels, int count) {
  std::vector<Channels> colours;
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y)) colours.push_back(Split(word));
  std::vector<Box> boxes{Box(colours)};
  while (static_cast<int>(boxes.size()) < count) {
    // Size counts besides length, so that a few stray pixels don't eat up the palette.
    const auto widest = std::ranges::max_element(boxes, {}, [](const Box& box) {
      return static_cast<double>(box.length) *
             static_cast<double>(std::min<std::size_t>(box.colours.size(), 4096));
    });
    if (widest->length == 0) break;
    const Box box = *widest;
    const std::size_t channel = box.longest;
    std::ranges::sort(box.colours, {}, [channel](const Channels& colour) { return colour[channel]; });
    auto middle = box.colours.begin() + static_cast<std::ptrdiff_t>(box.colours.size() / 2);
    // Equal values stay in one half, else a large flat area would be cut for ever.
    const int value = (*middle)[channel];
    while (middle != box.colours.begin() && (*(middle - 1))[channel] == value) --middle;
    if (middle == box.colours.begin())
      while ((*middle)[channel] == value) ++middle;
    *widest = Box({box.colours.begin(), middle});
    boxes.emplace_back(std::span<Channels>(middle, box.colours.end()));
  }
  Colours palette;
  for (const Box& box : boxes) palette.push_back(box.Average());
  return palette;
}

IndexedPicture Reduce(const Pixels& pixels, const Colours& palette, Dithering dithering) {
  std::vector<Channels> entries;
  for (const std::uint32_t word : palette) entries.push_back(Split(word));
  IndexedPicture result{pixels.GetSize(), palette, {}};
  const auto width = static_cast<std::size_t>(pixels.Width());
  // Errors of this row and the next in sixteenths, with one column of margin at either side
  // (Floyd and Steinberg: 7 to the right, 3, 5 and 1 below).
  std::vector<Channels> here(width + 2), below(width + 2);
  for (int y = 0; y < pixels.Height(); ++y) {
    const std::span<const std::uint32_t> row = pixels.Row(y);
    for (std::size_t x = 0; x < width; ++x) {
      Channels wanted = Split(row[x]);
      for (std::size_t channel = 0; channel < 3; ++channel)
        wanted[channel] = std::clamp(wanted[channel] + here[x + 1][channel] / 16, 0, 255);
      const std::uint8_t index = Nearest(entries, wanted);
      result.indices.push_back(index);
      if (dithering == Dithering::None) continue;
      for (std::size_t channel = 0; channel < 3; ++channel) {
        const int error = wanted[channel] - entries[index][channel];
        here[x + 2][channel] += 7 * error;
        below[x][channel] += 3 * error;
        below[x + 1][channel] += 5 * error;
        below[x + 2][channel] += error;
      }
    }
    here = std::exchange(below, std::vector<Channels>(width + 2));
  }
  return result;
}

Pixels Expand(const IndexedPicture& picture) {
  Pixels pixels = Pixels::MakeUnfilled(picture.size, PixelFormat::Rgb);
  for (int y = 0; y < picture.size.height; ++y)
    std::ranges::transform(picture.Row(y), pixels.Row(y).begin(),
                           [&](std::uint8_t index) { return picture.palette[index]; });
  return pixels;
}

}  // namespace lumidex
