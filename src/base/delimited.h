#pragma once
// Delimited records: items in a text, parted by commas and line ends, in double quotes where they may hold
// either.

#include <string>
#include <string_view>

namespace lumidex {

// Gives the items of a text one after the other. Blanks around an item are skipped. Line ends are CR LF, LF
// or CR.
class DelimitedReader {
 public:
  explicit DelimitedReader(std::string text) : text_(std::move(text)) {}

  bool AtEnd() const { return position_ >= text_.size(); }
  // An item without quotes ends at a comma or line end. One that begins with a quote ends at the quote before
  // a comma, a line end or the end of the text, and everything up to there belongs to it; a doubled quote is
  // one quote. Raises InputPastEnd at the end of the text.
  std::string Next();

 private:
  std::string Quoted();
  std::string Plain();
  void SkipBlanks();
  // The comma or line end behind an item.
  void SkipDelimiter();
  // `position` stands behind a quote: nothing but blanks lies between it and the end of an item.
  bool ItemEndsAt(std::size_t position) const;

  std::string text_;
  std::size_t position_ = 0;
};

// An item as DelimitedReader reads it back whatever it holds: in quotes, quotes within it doubled.
std::string DelimitedItem(std::string_view text);

}  // namespace lumidex
