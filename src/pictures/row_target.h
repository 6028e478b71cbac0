#pragma once
// Where decoders put the rows that they make one after the other: into all pixels of the picture or, when it
// is shown smaller, into their area average, so that the whole of a large picture is never held. Between rows
// the work pauses (pictures/pace.h).

#include <optional>

#include "base/memory_pages.h"
#include "pictures/codec.h"
#include "pictures/row_reducer.h"

namespace lumidex {

enum class RowOrder { TopDown, BottomUp };

class RowTarget {
 public:
  struct Options {
    Size wanted{};  // 0 by 0, or anything that is not smaller on both sides, makes all pixels
    RowOrder order = RowOrder::TopDown;
    int rowsAtOnce = 1;  // how many rows are worked on before they are added
    PictureLimits limits{};
  };
  RowTarget(Size size, PixelFormat format, const Options& options);
  RowTarget(const RowTarget&) = delete;
  RowTarget& operator=(const RowTarget&) = delete;

  // The place of the next row or of one that comes `ahead` rows later, for its pixels in straight alpha. What
  // is in it before is not told. Written in any order, until Add().
  std::span<std::uint32_t> Row(int ahead = 0);
  // The next `count` rows are complete.
  void Add(int count = 1);
  // The next `count` rows are not to be had and get `word` all over.
  void AddBlank(int count, std::uint32_t word);

  bool IsReduced() const { return reducer_.has_value(); }
  int RowsMissing() const { return size_.height - added_; }
  // The picture; rows that are missing get `blank` all over. Nothing may be called afterwards.
  Pixels Finish(std::uint32_t blank);

 private:
  Size size_;
  RowOrder order_;
  int added_ = 0;
  int sincePause_ = 0;                 // pixels
  Pixels pixels_;                      // the picture, all of it or reduced
  PagesAhead pages_;                   // of all of it, where rows come from its beginning
  Pixels rows_;                        // of a reduced picture: those worked on
  std::optional<RowReducer> reducer_;  // of a reduced picture
};

// The size to make of a picture, 0 by 0 for all pixels. Where it will be made smaller once more, twice the
// size on both sides keeps the average of averages from being told from the average.
inline Size SizeToMake(const DecodeRequest& request) {
  if (request.fit == Fit::Exact) return request.wanted;
  const auto twice = [](int side) { return side <= 0 ? 0 : side > (1 << 29) ? side : 2 * side; };
  return {twice(request.wanted.width), twice(request.wanted.height)};
}

// Whether a picture of `size` that is wanted for being shown at `wanted` is made smaller.
bool IsReducedFor(Size size, Size wanted);

}  // namespace lumidex
