#pragma once
// Threads where the system has them.

#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace lumidex {

// Runs `work` on a thread of its own; none when the system has no thread to give, and then `work` is not run.
template <class Work>
std::optional<std::jthread> StartThread(Work&& work) {
  try {
    return std::jthread(std::forward<Work>(work));
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

}  // namespace lumidex
