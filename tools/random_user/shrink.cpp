#include "random_user/shrink.h"

#include <sstream>

namespace lumidex::random_user {
namespace {

using Lines = std::vector<std::string>;

std::size_t IndentationOf(const std::string& line) {
  return line.find_first_not_of(' ');
}

// The line at `first` with all that is indented deeper below it.
std::size_t EndOfUnit(const Lines& lines, std::size_t first) {
  std::size_t end = first + 1;
  while (end < lines.size() && IndentationOf(lines[end]) > IndentationOf(lines[first])) ++end;
  return end;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace

std::string Shrunk(const std::string& scenario, const std::string& kind, int mostTries) {
  Lines lines;
  std::istringstream text(scenario);
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  int tries = 0;
  for (bool shrank = true; shrank && tries < mostTries;) {
    shrank = false;
    // From the end on, since what stands early is what later lines build on.
    for (std::size_t at = lines.size(); at-- > 0 && tries < mostTries;) {
      if (at >= lines.size()) continue;
      Lines shorter = lines;
      shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(at),
                    shorter.begin() + static_cast<std::ptrdiff_t>(EndOfUnit(lines, at)));
      ++tries;
      Outcome outcome = RunText(Joined(shorter));
      if (outcome.failure.empty() || outcome.Kind() != kind) continue;
      lines = std::move(shorter);
      shrank = true;
    }
  }
  return Joined(lines);
}

}  // namespace lumidex::random_user
