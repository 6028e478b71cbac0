#pragma once
// The event loop of the desktop: the program's yields, waits, nested loops and timers on top of Qt's.

#include <QObject>
#include <QTimer>
#include <map>
#include <memory>

#include "ports/event_queue.h"

namespace lumidex {

class QtEventQueue final : public EventQueue {
 public:
  QtEventQueue() = default;

  void Wait(int milliseconds) override;
  void RunUntil(const std::function<bool()>& done) override;
  void Stall() override;
  TimerId StartTimer(int milliseconds, Work tick) override;
  void StopTimer(TimerId timer) override;
  void Post(Work work) override;
  [[noreturn]] void EndProcess(int exitCode) override;

 private:
  void ServePending() override;
  struct Ticking;

  QObject receiver_;  // lives on the event thread: what Post delivers runs there
  std::map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId lastTimer_ = 0;
};

}  // namespace lumidex
