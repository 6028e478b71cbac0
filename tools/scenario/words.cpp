#include "scenario/words.h"

#include <charconv>

namespace lumidex::scenario {
namespace {

constexpr std::string_view blanks = " \t";

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

// From behind the opening quote; `at` ends behind the closing one.
std::string Quoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return text;
    }
    const bool isByte =
        line[at] == '%' && at + 2 < line.size() && HexDigit(line[at + 1]) >= 0 && HexDigit(line[at + 2]) >= 0;
    if (isByte) {
      text += static_cast<char>(HexDigit(line[at + 1]) * 16 + HexDigit(line[at + 2]));
      at += 2;
    } else {
      text += line[at];
    }
  }
  throw Failure{"a quote is not closed"};
}

}  // namespace

std::vector<Word> SplitWords(std::string_view line) {
  std::vector<Word> words;
  std::size_t at = 0;
  while ((at = line.find_first_not_of(blanks, at)) != std::string_view::npos) {
    Word word;
    word.start = at;
    if (line[at] == '"') {
      word.quoted = true;
      word.text = Quoted(line, ++at);
    } else {
      const auto end = std::min(line.find_first_of(blanks, at), line.size());
      word.text = line.substr(at, end - at);
      at = end;
    }
    words.push_back(std::move(word));
  }
  return words;
}

std::string RestOfLine(std::string_view line, std::size_t start) {
  const auto first = line.find_first_not_of(blanks, std::min(start, line.size()));
  if (first == std::string_view::npos) return {};
  const std::string_view rest = line.substr(first, line.find_last_not_of(blanks) + 1 - first);
  if (rest.front() == '"') {
    const auto words = SplitWords(rest);
    if (words.size() == 1) return words.front().text;
  }
  return std::string(rest);
}

long long WholeNumber(std::string_view text) {
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw Failure{"\"" + std::string(text) + "\" is no whole number"};
  }
  return number;
}

std::vector<int> Measures(std::string_view text) {
  std::vector<int> numbers;
  for (std::size_t start = 0; start <= text.size();) {
    const auto end = std::min(text.find('x', start), text.size());
    numbers.push_back(static_cast<int>(WholeNumber(text.substr(start, end - start))));
    start = end + 1;
  }
  if (numbers.size() < 2 || numbers.size() > 3) {
    throw Failure{"\"" + std::string(text) + "\" is no size; write it as 64x48 or 64x48x24"};
  }
  return numbers;
}

}  // namespace lumidex::scenario
