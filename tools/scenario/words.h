#pragma once
// The words of one line of a scenario. A word in double quotes may hold blanks, and bytes as "%0D"; others
// stand as they are, so that paths need no escapes.

#include <string>
#include <string_view>
#include <vector>

namespace lumidex::scenario {

// What is wrong with a scenario, or what did not hold in it. Not an exception type that the program knows, so
// no trap of the program can swallow it.
struct Failure {
  std::string text;
  int line = 0;  // one-based; 0 while it is not known
};

struct Word {
  std::string text;
  bool quoted = false;
  std::size_t start = 0;  // where it begins in the line
  bool Is(std::string_view plain) const { return !quoted && text == plain; }
};

// Throws Failure for a quote that is not closed.
std::vector<Word> SplitWords(std::string_view line);

// The rest of a line as one text: a single quoted word without its quotes, anything else as it stands.
std::string RestOfLine(std::string_view line, std::size_t start);

// Throws Failure for anything but a whole number.
long long WholeNumber(std::string_view text);

// "64x48" and "64x48x24" taken apart; throws Failure for another form.
std::vector<int> Measures(std::string_view text);

}  // namespace lumidex::scenario
