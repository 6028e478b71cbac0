#include "core/long_date.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <sstream>

#include "base/text.h"

namespace lumidex {
namespace {

std::string Written(const std::tm& day, const char* form) {
  std::ostringstream text;
  text << std::put_time(&day, form);
  return text.str();
}

std::tm DayOf(const DateTime& moment) {
  using namespace std::chrono;
  std::tm day{};
  day.tm_year = moment.year - 1900;
  day.tm_mon = moment.month - 1;
  day.tm_mday = moment.day;
  const weekday name{sys_days(year(moment.year) / moment.month / moment.day)};
  day.tm_wday = static_cast<int>(name.c_encoding());
  return day;
}

}  // namespace

std::string LongDate(const DateTime& moment) {
  const std::tm day = DayOf(moment);
  const std::string number = Number(moment.day), year = Number(moment.year);
  // How the locale's short form orders a day whose numbers can be told apart.
  const std::string sample = Written(DayOf({1999, 11, 22}), "%x");
  const std::int32_t dayPlace = InStr(sample, "22"), monthPlace = InStr(sample, "11");
  if (InStr(sample, "99") < std::min(dayPlace, monthPlace)) {
    return year + " " + Written(day, "%B ") + number + Written(day, ", %A");
  }
  if (dayPlace > 0 && dayPlace < monthPlace)
    return Written(day, "%A, ") + number + Written(day, " %B ") + year;
  return Written(day, "%A, %B ") + number + ", " + year;
}

}  // namespace lumidex
