#include "scenario/moments.h"

#include <chrono>
#include <cstdio>

namespace lumidex::scenario {
namespace {

// The three numbers of a word as "a-b-c"; false for a word of another form.
bool ThreeNumbers(const std::string& word, const char* form, int& a, int& b, int& c) {
  int length = 0;
  return std::sscanf(word.c_str(), form, &a, &b, &c, &length) == 3 &&
         static_cast<std::size_t>(length) == word.size();
}

bool IsDay(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  return month > 0 && day > 0 && date.ok();
}

bool IsTime(int hour, int minute, int second) {
  return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

}  // namespace

void TakeMoment(Arguments& words, DateTime& moment) {
  do {
    const std::string& word = words.Next("the day as 2002-03-15 or the time as 23:59:58");
    int a = 0, b = 0, c = 0;
    if (ThreeNumbers(word, "%d:%d:%d%n", a, b, c) && IsTime(a, b, c)) {
      moment.hour = a, moment.minute = b, moment.second = c;
    } else if (ThreeNumbers(word, "%d-%d-%d%n", a, b, c) && IsDay(a, b, c)) {
      moment.year = a, moment.month = b, moment.day = c;
    } else {
      throw Failure{"\"" + word + "\" is neither a time as 23:59:58 nor a day as 2002-03-15"};
    }
  } while (!words.AtEnd());
}

std::string TakeBytes(Arguments& words) {
  std::string bytes;
  while (!words.AtEnd()) {
    const std::string& word = words.Next("a byte");
    if (word.size() != 2 || word.find_first_not_of("0123456789ABCDEF") != std::string::npos) {
      throw Failure{"\"" + word + "\" is no byte; write two digits as 0D or FF"};
    }
    bytes += static_cast<char>(std::stoi(word, nullptr, 16));
  }
  return bytes;
}

std::string TextOfLines(const Statement& block) {
  std::string text;
  for (const Statement& line : block.block) text += RestOfLine(line.text, 0) + "\r\n";
  return text;
}

}  // namespace lumidex::scenario
