#pragma once
// The lines of a text, one after the other.

#include <string>
#include <string_view>

namespace lumidex {

// Lines end in CR LF, LF or CR; a last line needs no end.
class LineReader {
 public:
  explicit LineReader(std::string text) : text_(std::move(text)) {}

  bool AtEnd() const { return position_ >= text_.size(); }
  // The next line without its end. Raises InputPastEnd when there is none.
  std::string Next();

 private:
  std::string text_;
  std::size_t position_ = 0;
};

}  // namespace lumidex
