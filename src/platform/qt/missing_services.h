#pragma once
// The services that this front end does not offer, and says so.

#include "base/run_time_error.h"
#include "ports/services.h"

namespace lumidex {

// No notification area: the program keeps its windows on the task bar.
class NoTray final : public Tray {
 public:
  bool IsAvailable() const override { return false; }
  bool Shell_NotifyIconA(unsigned, const TrayIconRecord&) override { return false; }
};

class NoPopup final : public Popup {
 public:
  void PopupMenu(WindowHandle, WindowHandle) override { throw RunTimeError(ErrorNumber::InvalidCall); }
};

// No web pages.
class NoBrowser final : public Browser {
 public:
  void Navigate(int, const std::string&) override { throw RunTimeError(ErrorNumber::AutomationError); }
  bool Busy(int) const override { throw RunTimeError(ErrorNumber::AutomationError); }
  std::string LocationName(int) const override { throw RunTimeError(ErrorNumber::AutomationError); }
};

}  // namespace lumidex
