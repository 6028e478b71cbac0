#include "platform/headless/civil_time.h"

#include <chrono>

namespace lumidex {

std::int64_t SecondsSince1970(const DateTime& moment) {
  using namespace std::chrono;
  const sys_days date = year(moment.year) / moment.month / moment.day;
  const auto time = hours(moment.hour) + minutes(moment.minute) + seconds(moment.second);
  return duration_cast<seconds>((date + time).time_since_epoch()).count();
}

DateTime CivilTime(std::int64_t secondsSince1970) {
  using namespace std::chrono;
  const sys_seconds moment{seconds(secondsSince1970)};
  const auto midnight = floor<days>(moment);
  const year_month_day date{midnight};
  const hh_mm_ss time{moment - midnight};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

}  // namespace lumidex
