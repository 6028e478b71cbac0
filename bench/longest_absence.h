#pragma once
// How long a person may have to wait for an answer.

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

namespace lumidex {

// The longest time between two turns of the event loop.
class LongestAbsence {
 public:
  LongestAbsence() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      longest_ = std::max(longest_, static_cast<double>(since_.nsecsElapsed()) / 1e6);
      since_.restart();
    });
    since_.start();
    timer_.start(1);
  }
  double Milliseconds() const { return longest_; }

 private:
  QTimer timer_;
  QElapsedTimer since_;
  double longest_ = 0;
};

}  // namespace lumidex
