#pragma once
// Threads where the system has them.

#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace lumidex {

// Lets a thread that was just started begin on another processor than the caller's, where there is one. The
// system leaves it to itself from then on: a processor that sleeps is not always found for a new thread, above
// all that of a virtual machine, and then the two take turns for some milliseconds.
void BeginElsewhere(std::thread::native_handle_type thread);

// Runs `work` on a thread of its own; none when the system has no thread to give, and then `work` is not run.
template <class Work>
std::optional<std::jthread> StartThread(Work&& work) {
  try {
    std::jthread thread(std::forward<Work>(work));
    BeginElsewhere(thread.native_handle());
    return thread;
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

}  // namespace lumidex
