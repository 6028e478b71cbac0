#include "platform/qt/clock.h"

#include <QDateTime>

namespace lumidex {
namespace {

DateTime Taken(const QDateTime& moment) {
  const QDate date = moment.date();
  const QTime time = moment.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

}  // namespace

double QtClock::TimeOfDay() const {
  return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

DateTime QtClock::Now() const {
  return Taken(QDateTime::currentDateTime());
}

DateTime QtClock::LocalTime(std::int64_t secondsSince1970) const {
  return Taken(QDateTime::fromSecsSinceEpoch(secondsSince1970));
}

}  // namespace lumidex
