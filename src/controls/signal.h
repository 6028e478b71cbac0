#pragma once
// Observers of a control. Slots may connect, disconnect themselves or others, emit again or destroy the
// signal while it is being emitted. Event thread only.

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lumidex {

struct SlotState {
  bool live = true;
  bool resting = false;
};

// Cuts the connection when it dies.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<SlotState> state) : state_(std::move(state)) {}
  Connection(Connection&&) noexcept = default;
  Connection& operator=(Connection&& other) noexcept {
    Cut();
    state_ = std::move(other.state_);
    return *this;
  }
  ~Connection() { Cut(); }

  void Cut() {
    // Only the flag is cleared: a closure that is running must not be destroyed.
    if (const auto state = state_.lock()) state->live = false;
    state_.reset();
  }
  // Whoever knows already what it would hear need not be called.
  void Rest(bool rests) {
    if (const auto state = state_.lock()) state->resting = rests;
  }

 private:
  std::weak_ptr<SlotState> state_;
};

template <class... Args>
class Signal {
 public:
  using Function = std::function<void(Args...)>;

  [[nodiscard]] Connection Connect(Function function) {
    auto slot = std::make_shared<Slot>(Slot{{}, std::move(function)});
    if (!slots_) slots_ = std::make_unique<Slots>();
    slots_->push_back(slot);
    return Connection(slot);
  }

  void Emit(Args... args) {
    if (!slots_) return;
    std::erase_if(*slots_, [](const auto& slot) { return !slot->live; });
    // The copy keeps the closures alive; nothing of the signal itself is touched after the first call.
    if (std::ranges::all_of(*slots_, &Slot::resting)) return;
    if (slots_->size() == 1) {
      const auto only = slots_->front();
      return only->function(args...);
    }
    const auto slots = *slots_;
    for (const auto& slot : slots) {
      if (slot->live && !slot->resting) slot->function(args...);
    }
  }

 private:
  struct Slot : SlotState {
    Function function;
  };

  using Slots = std::vector<std::shared_ptr<Slot>>;
  std::unique_ptr<Slots> slots_;  // none for most of the thousands of signals that controls have
};

}  // namespace lumidex
