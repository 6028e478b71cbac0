#pragma once
// The event loop of the desktop: the program's yields, waits, nested loops and timers on top of Qt's.

#include <QObject>
#include <QTimer>
#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "ports/event_queue.h"

namespace lumidex {

class QtEventQueue final : public EventQueue {
 public:
  QtEventQueue();

  void Wait(int milliseconds) override;
  void RunUntil(const std::function<bool()>& done) override;
  void Stall() override;
  void RunAside(const Work& work) override;
  bool IsAside() const override { return isAside_; }
  TimerId StartTimer(int milliseconds, Work tick) override;
  void StopTimer(TimerId timer) override;
  void Post(Work work) override;
  [[noreturn]] void EndProcess(int exitCode) override;

  // The last work of the process.
  std::function<void()> BeforeEnd;

 private:
  void ServePending() override;
  struct Ticking;

  // Runs it now, or behind the work aside.
  void Serve(const Work& work);
  QObject receiver_;  // lives on the event thread: what Post delivers runs there
  std::map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId lastTimer_ = 0;
  std::atomic<bool> isPosted_ = false;
  std::optional<std::int64_t> served_;  // when, in milliseconds
  bool isAside_ = false;
  std::vector<Work> waiting_;  // for the end of the work aside
};

}  // namespace lumidex
