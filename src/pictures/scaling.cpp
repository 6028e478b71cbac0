#include "pictures/scaling.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <new>
#include <vector>

#include "pictures/in_parts.h"
#include "pictures/row_reducer.h"

namespace lumidex {

namespace {

void Reduce(const Pixels& pixels, Pixels& into) {
  // To begin another thread takes as long as some ten thousand pixels.
  constexpr std::size_t leastPixels = std::size_t{1} << 19;
  const auto rows = static_cast<std::size_t>(into.Height());
  const std::size_t pixelsInRow = pixels.ByteCount() / 4 / rows;
  std::atomic<bool> lacksMemory = false;
  InParts(rows, leastPixels / std::max<std::size_t>(pixelsInRow, 1), [&](std::size_t begin, std::size_t end) {
    try {
      RowReducer reducer(pixels.GetSize(), into, false, static_cast<int>(begin));
      auto y = static_cast<int>(reducer.RowsBefore(reducer.Done()));
      while (reducer.Done() < static_cast<int>(end)) reducer.Add(pixels.Row(y++));
    } catch (const std::bad_alloc&) {
      lacksMemory = true;
    }
  });
  if (lacksMemory) throw std::bad_alloc();
}

// More rows than there are: each lies between two of the picture's.
void Enlarge(const Pixels& pixels, Pixels& into) {
  const LineScaler across(pixels.Width(), into.Width(), into.Format());
  const double ratio = static_cast<double>(pixels.Height()) / into.Height();
  const int last = pixels.Height() - 1;
  const auto channels = static_cast<std::size_t>(pixels.Width()) * 4;
  std::vector<std::uint16_t> line(channels);
  std::array<std::vector<std::uint16_t>, 2> kept{line, line};
  std::array<int, 2> keptRow{-1, -1};
  const auto lineOf = [&](int y) -> const std::vector<std::uint16_t>& {
    const auto slot = static_cast<std::size_t>(y & 1);
    if (keptRow[slot] != y) WeighChannels(pixels.Row(y), pixels.Format(), kept[slot]);
    keptRow[slot] = y;
    return kept[slot];
  };
  for (int y = 0; y < into.Height(); ++y) {
    const double centre = std::clamp((y + 0.5) * ratio - 0.5, 0.0, static_cast<double>(last));
    const int above = static_cast<int>(centre);
    const auto share = static_cast<float>(centre - above);
    const auto &upper = lineOf(above), &lower = lineOf(std::min(above + 1, last));
    for (std::size_t i = 0; i < channels; ++i)
      line[i] = static_cast<std::uint16_t>(upper[i] * (1 - share) + lower[i] * share + 0.5F);
    across.Write(line, into.Row(y));
  }
}

}  // namespace

Pixels Copy(const Pixels& pixels) {
  Pixels copy = Pixels::MakeUnfilled(pixels.GetSize(), pixels.Format());
  std::copy_n(pixels.Data(), pixels.ByteCount() / 4, copy.Data());
  return copy;
}
Pixels Scale(const Pixels& pixels, Size size) {
  if (size == pixels.GetSize()) return pixels;
  Pixels scaled = Pixels::MakeUnfilled(size, pixels.Format());
  if (size.height <= pixels.Height()) {
    Reduce(pixels, scaled);
  } else {
    Enlarge(pixels, scaled);
  }
  return scaled;
}

}  // namespace lumidex
