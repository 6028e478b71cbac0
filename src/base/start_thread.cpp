#include "base/start_thread.h"

#ifdef __linux__
#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#endif

namespace lumidex {

#ifdef __linux__
namespace {

// What the calls of the same name take, as in sched_setattr(2); the C library has none.
struct SchedulingAttributes {
  std::uint32_t size = sizeof(SchedulingAttributes);
  std::uint32_t policy = SCHED_OTHER;
  std::uint64_t flags = 0;
  std::int32_t nice = 0;
  std::uint32_t priority = 0;
  std::uint64_t runtime = 0;  // nanoseconds; of the usual policies the length of a turn, since Linux 6.12
  std::uint64_t deadline = 0;
  std::uint64_t period = 0;
};

}  // namespace
#endif

void ThreadStart::BeUnhurried() {
#ifdef __linux__
  constexpr std::uint64_t longestTurn = 100'000'000;
  SchedulingAttributes attributes;
  // A priority that the program was given as a whole stays.
  if (syscall(SYS_sched_getattr, 0, &attributes, sizeof attributes, 0) != 0 ||
      attributes.policy != SCHED_OTHER)
    return;
  attributes.policy = SCHED_BATCH;
  attributes.runtime = longestTurn;
  syscall(SYS_sched_setattr, 0, &attributes, 0);
#endif
}

void ThreadStart::Elsewhere([[maybe_unused]] std::thread::native_handle_type thread) {
#ifdef __linux__
  const int here = sched_getcpu();
  cpu_set_t allowed;
  if (here < 0 || pthread_getaffinity_np(pthread_self(), sizeof allowed, &allowed) != 0) return;
  cpu_set_t others = allowed;
  CPU_CLR(static_cast<unsigned>(here), &others);
  if (CPU_COUNT(&others) == 0 || pthread_setaffinity_np(thread, sizeof others, &others) != 0) return;
  pthread_setaffinity_np(thread, sizeof allowed, &allowed);
#endif
}

}  // namespace lumidex
