#pragma once
// Brings rows down to fewer rows by their area average as they come, so that a picture can be made smaller
// while it is being decoded, without ever being held whole.

#include <span>
#include <vector>

#include "pictures/line_scaler.h"

namespace lumidex {

class RowReducer {
 public:
  // Rows of a picture of size `from` become `into`, which must live as long and have no more rows. Where
  // `bottomUp` they come from the bottom of the picture.
  RowReducer(Size from, Pixels& into, bool bottomUp = false);

  // The next row, in the format of `into`. Called once for each row of `from`.
  void Add(std::span<const std::uint32_t> row);

 private:
  template <class Channel>
  void AddChannels(const Channel* channels);
  void JoinTheSum();
  // Of the height of a row of `into`.
  std::uint16_t Share(std::int64_t parts) const;

  Pixels* into_;
  bool bottomUp_;
  LineScaler across_;
  // Heights are counted in parts, of which a row that comes has `rowParts_` and one of `into` `mostParts_`.
  std::int64_t rowParts_, mostParts_;
  std::int64_t parts_ = 0;           // that the row in work has so far
  int done_ = 0;                     // rows of `into` written
  std::vector<std::uint16_t> line_;  // the row in work; see line_scaler.h
  // Rows that belong to it with all their height are added up first, as long as the sum can hold them.
  std::vector<std::uint16_t> sum_;
  int inSum_ = 0, mostInSum_ = 0;
  std::vector<std::uint16_t> weighed_;
};

}  // namespace lumidex
