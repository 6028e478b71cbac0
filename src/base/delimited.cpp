#include "base/delimited.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {
namespace {

constexpr std::string_view delimiters = ",\r\n";

}  // namespace

std::string DelimitedReader::Next() {
  if (AtEnd()) throw RunTimeError(ErrorNumber::InputPastEnd);
  SkipBlanks();
  const bool quoted = !AtEnd() && text_[position_] == '"';
  std::string item = quoted ? Quoted() : Plain();
  SkipDelimiter();
  return item;
}

std::string DelimitedReader::Quoted() {
  std::string item;
  for (++position_; !AtEnd(); ++position_) {
    if (text_[position_] == '"') {
      const bool doubled = position_ + 1 < text_.size() && text_[position_ + 1] == '"';
      if (doubled) {
        ++position_;
      } else if (ItemEndsAt(position_ + 1)) {
        ++position_;
        SkipBlanks();
        break;
      }
    }
    item += text_[position_];
  }
  return item;
}

std::string DelimitedReader::Plain() {
  const std::size_t start = position_;
  position_ = std::min(text_.find_first_of(delimiters, start), text_.size());
  return Trim(std::string_view(text_).substr(start, position_ - start));
}

void DelimitedReader::SkipBlanks() {
  while (!AtEnd() && text_[position_] == ' ') ++position_;
}

void DelimitedReader::SkipDelimiter() {
  if (AtEnd()) return;
  const bool isPair = text_.compare(position_, 2, "\r\n") == 0;
  position_ += isPair ? 2 : 1;
}

bool DelimitedReader::ItemEndsAt(std::size_t position) const {
  const std::size_t next = text_.find_first_not_of(' ', position);
  return next == std::string::npos || delimiters.find(text_[next]) != std::string_view::npos;
}

std::string DelimitedItem(std::string_view text) {
  std::string item = "\"";
  for (const char character : text) {
    if (character == '"') item += '"';
    item += character;
  }
  return item + '"';
}

}  // namespace lumidex
