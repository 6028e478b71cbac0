#include "pictures/orientation.h"

#include <algorithm>

#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

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

// Target columns made at once: a line of the cache in each of the target's rows, and no more rows of the
// source read side by side than the processor can read ahead in.
constexpr int LineWords = 16;

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

// One line in each row of the target but those of the last `columns % 4` source columns.
template <bool Streamed>
void TransposeLines(const Transposition& work, int columns, int first) {
  const std::uint32_t* rows[LineWords];
  for (int i = 0; i < LineWords; ++i) rows[i] = work.SourceRow(first + i);
  for (int column = 0; column + 4 <= columns; column += 4) {
    WordBlock blocks[4][4];
    for (int i = 0; i < 4; ++i) TransposeBlocks(rows + i * 4, column, blocks[i]);
    for (int row = 0; row < 4; ++row) {
      std::uint32_t* out = work.TargetRow(column + row) + first;
      for (int i = 0; i < 4; ++i) {
        if constexpr (Streamed) {
          StreamBlock(out + i * 4, blocks[i][row]);
        } else {
          StoreBlock(out + i * 4, blocks[i][row]);
        }
      }
    }
  }
}

void TransposeInto(const Pixels& from, Pixels& into, bool leftward, bool upward) {
  const Transposition work{from, into, leftward, upward};
  const int columns = from.Width(), length = from.Height();
  const bool aligned = length % 4 == 0 && IsAligned(into.Data());
  const int lines = length / LineWords * LineWords, fours = columns / 4 * 4;
  for (int first = 0; first < lines; first += LineWords) {
    if (aligned) {
      TransposeLines<true>(work, columns, first);
    } else {
      TransposeLines<false>(work, columns, first);
    }
    TransposeWords(work, fours, columns - fours, first, LineWords);
  }
  TransposeWords(work, 0, columns, lines, length - lines);
  StreamsDone();
}

#else

void TransposeInto(const Pixels& from, Pixels& into, bool leftward, bool upward) {
  const Transposition work{from, into, leftward, upward};
  const int columns = from.Width(), length = from.Height();
  for (int first = 0; first < length; first += LineWords) {
    for (int left = 0; left < columns; left += LineWords)
      TransposeWords(work, left, std::min(LineWords, columns - left), first,
                     std::min(LineWords, length - first));
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
  for (int y = 0; y < height; ++y) {
    const auto target = into.Row(topBottom ? height - 1 - y : y);
    if (leftRight) {
      ReverseRow(from.Row(y), target);
    } else {
      TransformWords(from.Row(y).data(), target.data(), target.size(), [](auto words) { return words; });
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
