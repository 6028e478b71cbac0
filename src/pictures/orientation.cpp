#include "pictures/orientation.h"

#include <algorithm>

namespace lumidex {
namespace {

// Reads 16 rows side by side, so that both what is read and what is written stays in the nearest cache.
constexpr int BlockSide = 16;

// Column x of the source becomes row x, or the row counted from the bottom when `upward`; within it the
// source's rows run from the left, or from the right when `leftward`.
void TransposeInto(const Pixels& from, Pixels& into, bool leftward, bool upward) {
  const int width = from.Width(), height = from.Height();
  const std::uint32_t* source = from.Data();
  std::uint32_t* target = into.Data();
  const auto block = [&](int left, int top, int columns, int rows) {
    for (int column = left; column < left + columns; ++column) {
      const std::ptrdiff_t targetRow = upward ? width - 1 - column : column;
      std::uint32_t* out = target + targetRow * height + (leftward ? height - top - rows : top);
      const std::uint32_t* in = source + std::ptrdiff_t{leftward ? top + rows - 1 : top} * width + column;
      const std::ptrdiff_t step = leftward ? -std::ptrdiff_t{width} : std::ptrdiff_t{width};
      for (int row = 0; row < rows; ++row) out[row] = in[row * step];
    }
  };
  for (int left = 0; left < width; left += BlockSide) {
    const int columns = std::min(BlockSide, width - left);
    for (int top = 0; top < height; top += BlockSide)
      block(left, top, columns, std::min(BlockSide, height - top));
  }
}

void MirrorInto(const Pixels& from, Pixels& into, bool leftRight, bool topBottom) {
  const int height = from.Height();
  for (int y = 0; y < height; ++y) {
    const auto source = from.Row(topBottom ? height - 1 - y : y);
    if (leftRight) {
      std::ranges::reverse_copy(source, into.Row(y).begin());
    } else {
      std::ranges::copy(source, into.Row(y).begin());
    }
  }
}

}  // namespace

Orientation OrientationOf(int number) {
  return number >= 1 && number <= 8 ? static_cast<Orientation>(number) : Orientation::Upright;
}

Pixels Turned(const Pixels& pixels, Orientation orientation) {
  if (pixels.IsEmpty() || orientation == Orientation::Upright) return pixels;
  Pixels turned = Pixels::MakeUnfilled(TurnedSize(pixels.GetSize(), orientation), pixels.Format());
  switch (orientation) {
    case Orientation::Upright:
      break;
    case Orientation::MirrorLeftRight:
      MirrorInto(pixels, turned, true, false);
      break;
    case Orientation::HalfTurn:
      MirrorInto(pixels, turned, true, true);
      break;
    case Orientation::MirrorTopBottom:
      MirrorInto(pixels, turned, false, true);
      break;
    case Orientation::Transpose:
      TransposeInto(pixels, turned, false, false);
      break;
    case Orientation::QuarterRight:
      TransposeInto(pixels, turned, true, false);
      break;
    case Orientation::Transverse:
      TransposeInto(pixels, turned, true, true);
      break;
    case Orientation::QuarterLeft:
      TransposeInto(pixels, turned, false, true);
      break;
  }
  return turned;
}

}  // namespace lumidex
