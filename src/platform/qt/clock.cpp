#include "platform/qt/clock.h"

#include <QDateTime>

namespace lumidex {

double QtClock::TimeOfDay() const {
  return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

DateTime QtClock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

}  // namespace lumidex
