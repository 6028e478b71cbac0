#include "controls/timer.h"

#include "base/run_time_error.h"
#include "controls/form.h"

namespace lumidex {

Timer::Timer(Form& owner, std::string name, int interval, bool enabled)
    : Control(owner, std::move(name)),
      Interval(*this, "Interval", interval, ruled<int, &RefuseOthers, nullptr, &IntervalWritten>) {
  Enabled.SetQuietly(enabled);
}

Timer::~Timer() {
  Stop();
}

void Timer::RefuseOthers(Element&, const int& value) {
  if (value < 0 || value > 65535) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

void Timer::Restart() {
  Stop();
  if (!Owner().IsLoaded() || !Enabled || Interval == 0) return;
  running_ = Owner().GetPlatform().events.StartTimer(Interval, [this] { OnTimer(); });
}

void Timer::Stop() {
  if (running_) Owner().GetPlatform().events.StopTimer(running_);
  running_ = 0;
}

}  // namespace lumidex
