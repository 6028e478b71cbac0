#pragma once
// Threads beside the event thread, where the system has them.

#include <optional>
#include <stop_token>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace lumidex {

// How StartThread treats what it starts; by itself for nobody.
struct ThreadStart {
  // The calling thread does not push others aside when it is woken, which have something to do until they
  // ask for what it makes; and it is pushed aside by what is woken for a moment, as the event thread is and
  // the window system. Its share of the processors stays.
  static void BeUnhurried();
  // Lets a thread that was just started begin on another processor than the caller's, where there is one. The
  // system leaves it to itself from then on: a processor that sleeps is not always found for a new thread,
  // above all that of a virtual machine, and then the two take turns for some milliseconds.
  static void Elsewhere(std::thread::native_handle_type thread);
};

// Where a thread begins: as the system finds, or on another processor than its starter's, which has much to
// do itself. More of those at a time than there are other processors would wait for each other.
enum class Beginning { Anywhere, Elsewhere };

// Runs `work`, which may take a stop token, on a thread of its own; none when the system has no thread to
// give, and then `work` is not run.
template <class Work>
std::optional<std::jthread> StartThread(Work&& work, Beginning beginning = Beginning::Anywhere) {
  try {
    std::jthread thread([work = std::forward<Work>(work)](const std::stop_token& end) mutable {
      ThreadStart::BeUnhurried();
      if constexpr (std::is_invocable_v<Work, const std::stop_token&>) {
        work(end);
      } else {
        work();
      }
    });
    if (beginning == Beginning::Elsewhere) ThreadStart::Elsewhere(thread.native_handle());
    return thread;
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

}  // namespace lumidex
