#include "base/line_reader.h"

#include <algorithm>

#include "base/run_time_error.h"

namespace lumidex {

std::string LineReader::Next() {
  if (AtEnd()) throw RunTimeError(ErrorNumber::InputPastEnd);
  const std::size_t end = std::min(text_.find_first_of("\r\n", position_), text_.size());
  std::string line = text_.substr(position_, end - position_);
  position_ = end + (text_.compare(end, 2, "\r\n") == 0 ? 2 : 1);
  return line;
}

}  // namespace lumidex
