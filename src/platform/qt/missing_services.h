#pragma once
// The services that this front end does not offer, and says so.

#include "ports/services.h"

namespace lumidex {

// No notification area: the program keeps its windows on the task bar.
class NoTray final : public Tray {
 public:
  bool IsAvailable() const override { return false; }
  bool Shell_NotifyIconA(unsigned, const TrayIconRecord&) override { return false; }
};

// No web pages.
class NoBrowser final : public Browser {
 public:
  void Navigate(const std::string&) override {}
};

}  // namespace lumidex
