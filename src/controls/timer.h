#pragma once
// The timer control: fires while it is enabled with an interval above 0 and its form is loaded.

#include "controls/control.h"
#include "ports/event_queue.h"

namespace lumidex {

class Timer final : public Control {
 public:
  Timer(Form& owner, std::string name, int interval = 0, bool enabled = true);
  ~Timer() override;
  std::string_view Kind() const override { return "Timer"; }
  void WhenFormLoaded() override { Restart(); }
  void WhenFormUnloaded() override { Stop(); }

  // Milliseconds, 0 to 65,535; others raise InvalidPropertyValue. Writing it, or Enabled, restarts the
  // period, also when the value stays the same.
  Property<int> Interval;
  Event<> OnTimer;

 protected:
  void WhenEnabledWritten() override { Restart(); }

 private:
  static void RefuseOthers(Element& owner, const int& value);
  static void IntervalWritten(Element& element) { static_cast<Timer&>(element).Restart(); }
  void Restart();
  void Stop();
  TimerId running_ = 0;
};

}  // namespace lumidex
