#pragma once
// Observers of a control. Slots may connect, disconnect themselves or others, emit again or destroy the
// signal while it is being emitted. Event thread only.

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lumidex {

// Cuts the connection when it dies.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<bool> live) : live_(std::move(live)) {}
  Connection(Connection&&) noexcept = default;
  Connection& operator=(Connection&& other) noexcept {
    Cut();
    live_ = std::move(other.live_);
    return *this;
  }
  ~Connection() { Cut(); }

  void Cut() {
    // Only the flag is cleared: a closure that is running must not be destroyed.
    if (const auto live = live_.lock()) *live = false;
    live_.reset();
  }

 private:
  std::weak_ptr<bool> live_;
};

template <class... Args>
class Signal {
 public:
  using Function = std::function<void(Args...)>;

  [[nodiscard]] Connection Connect(Function function) {
    auto slot = std::make_shared<Slot>(Slot{true, std::move(function)});
    slots_.push_back(slot);
    return Connection(std::shared_ptr<bool>(slot, &slot->live));
  }

  void Emit(Args... args) {
    if (slots_.empty()) return;
    std::erase_if(slots_, [](const auto& slot) { return !slot->live; });
    // The copy keeps the closures alive; nothing of the signal itself is touched after the first call.
    if (slots_.size() == 1) {
      const auto only = slots_.front();
      return only->function(args...);
    }
    const auto slots = slots_;
    for (const auto& slot : slots) {
      if (slot->live) slot->function(args...);
    }
  }

 private:
  struct Slot {
    bool live;
    Function function;
  };

  std::vector<std::shared_ptr<Slot>> slots_;
};

}  // namespace lumidex
