#include "base/start_thread.h"

#ifdef __linux__
#include <pthread.h>
#include <sched.h>
#endif

namespace lumidex {

void BeginElsewhere([[maybe_unused]] std::thread::native_handle_type thread) {
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
