#include "platform/headless/simulated_events.h"

#include <algorithm>

#include "base/text.h"
#include "platform/headless/civil_time.h"
#include "platform/headless/script_ends.h"

namespace lumidex {
namespace {

constexpr std::int64_t dayMilliseconds = 86'400'000;
// A loop that yields so often without anything happening or any time passing will never end; nor will work
// that posts itself anew so often within one yield.
constexpr int mostIdleYields = 1'000'000;
// A second each, these are three days: whoever waits so long between two things that the user does waits for
// something that does not come.
constexpr int mostWaits = 300'000;

}  // namespace

bool SimulatedEvents::ServeOne() {
  Work work;
  {
    const std::lock_guard lock(postedMutex_);
    if (!posted_.empty()) {
      work = std::move(posted_.front());
      posted_.pop_front();
    }
  }
  if (work) {
    Guard(work);
    return true;
  }
  auto first = timers_.end();
  for (auto timer = timers_.begin(); timer != timers_.end(); ++timer) {
    if (timer->second.running >= mostNestedTicks || timer->second.due > elapsed_) continue;
    if (first == timers_.end() || timer->second.due < first->second.due) first = timer;
  }
  if (first == timers_.end()) return false;
  Tick(first->first);
  return true;
}

void SimulatedEvents::Tick(TimerId id) {
  PeriodicTimer& timer = timers_[id];
  // Periods that were missed are merged into this one tick.
  timer.due = elapsed_ + timer.period;
  ++timer.running;
  const Work tick = timer.tick;
  const auto finished = [&] {
    if (const auto still = timers_.find(id); still != timers_.end()) --still->second.running;
  };
  try {
    Guard(tick);
  } catch (...) {
    finished();
    throw;
  }
  finished();
}

void SimulatedEvents::ServeDue() {
  for (int served = 0; ServeOne(); ++served) {
    idleYields_ = 0;
    if (served > mostIdleYields) throw ProgramHung{};
  }
}

std::optional<std::int64_t> SimulatedEvents::NextDue() const {
  std::optional<std::int64_t> next;
  for (const auto& [id, timer] : timers_) {
    const bool mayTick = timer.running < mostNestedTicks;
    if (mayTick && (!next || timer.due < *next)) next = timer.due;
  }
  return next;
}

void SimulatedEvents::ServePending() {
  ++yields_;
  if (++idleYields_ > mostIdleYields) throw ProgramHung{};
  if (OnYield) OnYield();
  ServeDue();
}

void SimulatedEvents::Wait(int milliseconds) {
  idleYields_ = 0;
  if (++waits_ > mostWaits) throw ProgramHung{};
  if (ServeOne()) return;
  const std::int64_t end = elapsed_ + std::max(0, milliseconds);
  elapsed_ = std::min(end, std::max(elapsed_, NextDue().value_or(end)));
  ServeOne();
}

void SimulatedEvents::RunUntil(const std::function<bool()>& done) {
  waits_ = 0;
  while (!done()) {
    if (ServeOne()) continue;
    if (!NextUserAction || !NextUserAction()) throw NoUserActionLeft{};
  }
}

void SimulatedEvents::Stall() {
  throw ProgramHung{};
}

TimerId SimulatedEvents::StartTimer(int milliseconds, Work tick) {
  const std::int64_t period = std::max(1, milliseconds);
  timers_[++lastTimer_] = {period, elapsed_ + period, std::move(tick), 0};
  return lastTimer_;
}

void SimulatedEvents::StopTimer(TimerId timer) {
  timers_.erase(timer);
}

void SimulatedEvents::Post(Work work) {
  const std::lock_guard lock(postedMutex_);
  posted_.push_back(std::move(work));
}

void SimulatedEvents::EndProcess(int exitCode) {
  log_.Add("EndProcess " + Number(exitCode));
  throw ProgramEnded{exitCode};
}

double SimulatedEvents::TimeOfDay() const {
  return static_cast<double>((start_ + elapsed_) % dayMilliseconds) / 1000.0;
}

DateTime SimulatedEvents::Now() const {
  return CivilTime(SecondsSince1970());
}

DateTime SimulatedEvents::LocalTime(std::int64_t secondsSince1970) const {
  return CivilTime(secondsSince1970);
}

void SimulatedEvents::SetNow(const DateTime& now) {
  start_ = lumidex::SecondsSince1970(now) * 1000 - elapsed_;
}

void SimulatedEvents::Advance(std::int64_t milliseconds) {
  const std::int64_t end = elapsed_ + milliseconds;
  waits_ = 0;
  ServeDue();
  while (elapsed_ < end) {
    elapsed_ = std::min(end, std::max(elapsed_, NextDue().value_or(end)));
    ServeDue();
  }
}

void SimulatedEvents::ForgetEvents() {
  const std::lock_guard lock(postedMutex_);
  posted_.clear();
  timers_.clear();
  waits_ = idleYields_ = 0;
}

std::int64_t SimulatedEvents::SecondsSince1970() const {
  return (start_ + elapsed_) / 1000;
}

}  // namespace lumidex
