#pragma once
// An event queue and a clock that stand still unless somebody waits: no test sleeps, and midnight comes when
// a test wants it to.

#include <deque>
#include <map>
#include <mutex>

#include "platform/headless/call_log.h"
#include "ports/event_queue.h"
#include "ports/services.h"

namespace lumidex {

class SimulatedEvents final : public EventQueue, public Clock {
 public:
  explicit SimulatedEvents(CallLog& log) : log_(log) {}

  // Serves one event when one is due; else the clock goes on to the next timer, but no further than that many
  // milliseconds.
  void Wait(int milliseconds) override;
  // Serves what is due and lets the user act in between; the clock stands still meanwhile. Throws
  // NoUserActionLeft when it waits in vain.
  void RunUntil(const std::function<bool()>& done) override;
  void Stall() override;
  TimerId StartTimer(int milliseconds, Work tick) override;
  void StopTimer(TimerId timer) override;
  void Post(Work work) override;
  [[noreturn]] void EndProcess(int exitCode) override;

  double TimeOfDay() const override;
  DateTime Now() const override;
  // There is no time zone here.
  DateTime LocalTime(std::int64_t secondsSince1970) const override;

  // The clock at the present moment; does not touch the timers.
  void SetNow(const DateTime& now);
  // Lets that much time pass for a program that is idle: every timer fires when it is due.
  void Advance(std::int64_t milliseconds);
  std::int64_t SecondsSince1970() const;
  // As when a process ends: nothing that was posted or is ticking is served any more.
  void ForgetEvents();

  // Yields so far.
  int Yields() const { return yields_; }

  // The user, asked by RunUntil: does one thing and answers true, or false when there is nothing more to do.
  std::function<bool()> NextUserAction;
  // Runs at the start of every yield, before its events.
  std::function<void()> OnYield;

 private:
  void ServePending() override;
  struct PeriodicTimer {
    std::int64_t period = 0;
    std::int64_t due = 0;
    Work tick;
    int running = 0;  // how often its tick is being served, one inside the other
  };
  bool ServeOne();
  void Tick(TimerId id);
  void ServeDue();
  // When the next timer is due; nothing when no timer runs.
  std::optional<std::int64_t> NextDue() const;

  CallLog& log_;
  std::mutex postedMutex_;
  std::deque<Work> posted_;
  std::map<TimerId, PeriodicTimer> timers_;
  TimerId lastTimer_ = 0;
  std::int64_t elapsed_ = 0;            // milliseconds since the queue was made
  std::int64_t start_ = 1016186400000;  // its moment in milliseconds since 1970: 15 March 2002, 10:00:00
  int yields_ = 0;
  int idleYields_ = 0;
  int waits_ = 0;
};

}  // namespace lumidex
