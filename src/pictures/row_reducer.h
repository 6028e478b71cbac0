#pragma once
// Brings rows down to fewer rows by their area average as they come, so that a picture can be made smaller
// while it is being decoded, without ever being held whole.

#include <span>
#include <vector>

#include "base/memory_pages.h"
#include "pictures/line_scaler.h"

namespace lumidex {

class RowReducer {
 public:
  // Rows of a picture of size `from` become `into`, which must live as long and have no more rows. Where
  // `bottomUp` they come from the bottom of the picture. Above `first` nothing is made of `into`, and those
  // rows of the picture that nothing is made of then are left out; others may make them at the same time.
  RowReducer(Size from, Pixels& into, bool bottomUp = false, int first = 0);

  // How many rows of the picture come before the one that row `row` of `into` begins with.
  std::int64_t RowsBefore(int row) const { return row * mostParts_ / rowParts_; }
  // How many rows of `into` stand, those above the first one included.
  int Done() const { return done_; }
  // The next row, in the format of `into`. Called once for each row of `from` that is not left out.
  void Add(std::span<const std::uint32_t> row);

 private:
  template <class Channel>
  void AddChannels(const Channel* channels);
  void JoinTheSum();
  // Of the height of a row of `into`.
  std::uint16_t Share(std::int64_t parts) const;

  Pixels* into_;
  PagesAhead pages_;  // where rows come from the top
  bool bottomUp_;
  LineScaler across_;
  // Heights are counted in parts, of which a row that comes has `rowParts_` and one of `into` `mostParts_`.
  std::int64_t rowParts_, mostParts_;
  std::int64_t parts_ = 0;           // that the row in work has so far
  int done_;                         // rows of `into` written
  std::int64_t elsewhere_;           // parts of the next row that belong above
  std::vector<std::uint16_t> line_;  // the row in work; see line_scaler.h
  // Rows that belong to it with all their height are added up first, as long as the sum can hold them.
  std::vector<std::uint16_t> sum_;
  int inSum_ = 0, mostInSum_ = 0;
  std::vector<std::uint16_t> weighed_;
};

}  // namespace lumidex
