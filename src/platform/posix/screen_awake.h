#pragma once
// Keeps the screen from going dark, by whatever service of the desktop grants that.

#include <functional>
#include <memory>

#include "platform/posix/session_bus.h"

namespace lumidex {

// Something that lasts until it is destroyed, and no longer than the process.
class Grant {
 public:
  virtual ~Grant() = default;
};

class ScreenAwake {
 public:
  // `suspend` asks the window system itself, where no service does it: null when it can't.
  using Suspend = std::function<std::unique_ptr<Grant>()>;
  ScreenAwake(SessionBus& bus, Suspend suspend) : bus_(bus), suspend_(std::move(suspend)) {}

  // Waits for the services, so not for the event thread. The services take it back by themselves when the
  // connection to the bus ends, as it does with the process.
  void Keep(bool awake);

 private:
  bool Inhibit();

  SessionBus& bus_;
  Suspend suspend_;
  bool awake_ = false;
  // How to give back what the bus granted.
  std::optional<BusCall> release_;
  std::unique_ptr<Grant> grant_;
};

}  // namespace lumidex
