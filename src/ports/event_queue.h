#pragma once
// The platform's event loop: yields, waits, nested loops for modal windows, timers, the end of the process.

#include <cstdint>
#include <functional>

namespace lumidex {

using TimerId = std::uint64_t;

class EventQueue {
 public:
  using Work = std::function<void()>;

  // A tick that is slower than its period would else take all of the stack.
  static constexpr int mostNestedTicks = 16;

  virtual ~EventQueue() = default;

  // Serves all pending events, then returns. What is served may yield too, but not without end: beyond
  // `mostNestedYields` inside each other it returns at once, and those further out serve what waits. So a
  // queue of any length is served on a stack of no more than that.
  void Yield() {
    if (nestedYields_ == mostNestedYields) return;
    const Level level(nestedYields_);
    ServePending();
  }
  static constexpr int mostNestedYields = 48;
  // Serves events until one has been served or that many milliseconds have passed.
  virtual void Wait(int milliseconds) = 0;
  // A nested loop: serves events until `done` holds.
  virtual void RunUntil(const std::function<bool()>& done) = 0;
  // What a loop does that spins without yielding and never ends: the program stands still, without burning
  // the processor. A desktop sleeps a moment and returns; a test ends there and says so.
  virtual void Stall() = 0;

  // Runs work that may take long, and returns when it is done. Where there are threads it runs on one of its
  // own; meanwhile windows are painted, and every other event waits for the end. So the work may use what the
  // caller alone uses, but nothing that a window shows. Raises what the work raises.
  virtual void RunAside(const Work& work) { work(); }
  // True inside RunAside, when an event would have to wait.
  virtual bool IsAside() const { return false; }

  // Calls `tick` each time the period has passed, until stopped; missed periods are merged into one. What
  // serves events inside a tick may have the same tick served again there, up to mostNestedTicks deep: beyond
  // that it is late.
  virtual TimerId StartTimer(int milliseconds, Work tick) = 0;
  virtual void StopTimer(TimerId timer) = 0;
  // Runs `work` later on the event thread; may be called from another thread.
  virtual void Post(Work work) = 0;

  // Leaves at once, also from inside nested loops.
  [[noreturn]] virtual void EndProcess(int exitCode) = 0;

  // Every event is dispatched through here, so that no error crosses the loop: set by the program to its
  // default report.
  std::function<void(const Work&)> Guard = [](const Work& work) { work(); };

 private:
  struct Level {
    explicit Level(int& count) : count_(count) { ++count_; }
    ~Level() { --count_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    int& count_;
  };
  virtual void ServePending() = 0;

  int nestedYields_ = 0;
};

}  // namespace lumidex
