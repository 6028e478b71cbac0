#include "pictures/orientation.h"

#include <algorithm>

#include "pictures/in_parts.h"
#include "pictures/pixels.h"
#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

// A thread of its own pays from so many rows on.
constexpr std::size_t leastRows = 512;

// Where each pixel of a picture goes that is mirrored about a diagonal: column x of the source becomes row x,
// or the row counted from the bottom when `upward`; within it the source's rows run from the left, or from
// the right when `leftward`.
struct Transposition {
  const Pixels& from;
  Pixels& into;
  bool leftward, upward;

  // The source's row whose pixels stand in column `column` of the target.
  const std::uint32_t* SourceRow(int column) const {
    return from.Row(leftward ? from.Height() - 1 - column : column).data();
  }
  // The target's row that holds column `column` of the source.
  std::uint32_t* TargetRow(int column) const {
    return into.Row(upward ? from.Width() - 1 - column : column).data();
  }
};

// Source columns `left` to `left + columns`, target columns `first` to `first + count`.
void TransposeWords(const Transposition& work, int left, int columns, int first, int count) {
  for (int column = left; column < left + columns; ++column) {
    std::uint32_t* out = work.TargetRow(column);
    for (int i = first; i < first + count; ++i) out[i] = work.SourceRow(i)[column];
  }
}

#if LUMIDEX_WORD_BLOCKS

// Four pixels of each of four rows become four of each of four columns.
void TransposeBlocks(const std::uint32_t* const rows[4], int column, WordBlock out[4]) {
  const WordBlock a = LoadBlock(rows[0] + column), b = LoadBlock(rows[1] + column);
  const WordBlock c = LoadBlock(rows[2] + column), d = LoadBlock(rows[3] + column);
  const WordBlock ab = _mm_unpacklo_epi32(a, b), abHigh = _mm_unpackhi_epi32(a, b);
  const WordBlock cd = _mm_unpacklo_epi32(c, d), cdHigh = _mm_unpackhi_epi32(c, d);
  out[0] = _mm_unpacklo_epi64(ab, cd);
  out[1] = _mm_unpackhi_epi64(ab, cd);
  out[2] = _mm_unpacklo_epi64(abHigh, cdHigh);
  out[3] = _mm_unpackhi_epi64(abHigh, cdHigh);
}

// Target columns made at once: enough for several whole lines of the cache in each of the target's rows,
// wherever those begin.
constexpr int StripWords = 256;

// `count` target columns from `first` on, a multiple of four, of all source columns but the last `columns %
// 4`. Four rows of the target at a time are made aside and go past the cache from there.
void TransposeStrip(const Transposition& work, int columns, int first, int count) {
  constexpr int fetchedAhead = 32;  // in each of the source's rows
  const std::uint32_t* rows[StripWords];
  for (int i = 0; i < count; ++i) rows[i] = work.SourceRow(first + i);
  std::uint32_t made[4][StripWords];
  for (int column = 0; column + 4 <= columns; column += 4) {
    if (column % 16 == 0) {
      for (int i = 0; i < count; ++i) FetchAhead(rows[i] + column, fetchedAhead);
    }
    for (int i = 0; i < count; i += 4) {
      WordBlock blocks[4];
      TransposeBlocks(rows + i, column, blocks);
      for (int row = 0; row < 4; ++row) StoreBlock(made[row] + i, blocks[row]);
    }
    for (int row = 0; row < 4; ++row) StreamWords(made[row], work.TargetRow(column + row) + first, count);
  }
}

void TransposeInto(const Pixels& from, Pixels& into, bool leftward, bool upward) {
  const Transposition work{from, into, leftward, upward};
  const int columns = from.Width(), length = from.Height();
  const int fours = columns / 4 * 4, whole = length / 4 * 4;
  InParts(static_cast<std::size_t>((whole + StripWords - 1) / StripWords), leastRows / StripWords + 1,
          [&](std::size_t begin, std::size_t end) {
            const int last = std::min(static_cast<int>(end) * StripWords, whole);
            for (int first = static_cast<int>(begin) * StripWords; first < last; first += StripWords)
              TransposeStrip(work, columns, first, std::min(StripWords, whole - first));
            StreamsDone();
          });
  TransposeWords(work, fours, columns - fours, 0, whole);
  TransposeWords(work, 0, columns, whole, length - whole);
}

#else

void TransposeInto(const Pixels& from, Pixels& into, bool leftward, bool upward) {
  const Transposition work{from, into, leftward, upward};
  const int columns = from.Width(), length = from.Height();
  constexpr int side = 16;  // of a block that stays in the nearest cache
  for (int first = 0; first < length; first += side) {
    for (int left = 0; left < columns; left += side)
      TransposeWords(work, left, std::min(side, columns - left), first, std::min(side, length - first));
  }
}

#endif

void ReverseRow(std::span<const std::uint32_t> from, std::span<std::uint32_t> into) {
  std::uint32_t* out = into.data() + into.size();
  std::size_t done = 0;
#if LUMIDEX_WORD_BLOCKS
  for (; done + 4 <= from.size(); done += 4) {
    if (done % 16 == 0) FetchAhead(from.data() + done);
    out -= 4;
    StoreBlock(out, _mm_shuffle_epi32(LoadBlock(from.data() + done), _MM_SHUFFLE(0, 1, 2, 3)));
  }
#endif
  for (const std::uint32_t word : from.subspan(done)) *--out = word;
}

void MirrorInto(const Pixels& from, Pixels& into, bool leftRight, bool topBottom) {
  const int height = from.Height();
  InParts(static_cast<std::size_t>(height), leastRows, [&](std::size_t begin, std::size_t end) {
    for (int y = static_cast<int>(begin); y < static_cast<int>(end); ++y) {
      const auto target = into.Row(topBottom ? height - 1 - y : y);
      if (leftRight) {
        ReverseRow(from.Row(y), target);
      } else {
        TransformWords(from.Row(y).data(), target.data(), target.size(), [](auto words) { return words; });
      }
    }
  });
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
