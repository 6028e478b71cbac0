#pragma once
// A system that has no threads to give, for as long as this lives.

#include <pthread.h>

#include <cstddef>

namespace lumidex {

class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t none;
    pthread_attr_init(&none);
    // More than any address space holds.
    pthread_attr_setstacksize(&none, std::size_t{1} << 56);
    pthread_setattr_default_np(&none);
    pthread_attr_destroy(&none);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&before_);
    pthread_attr_destroy(&before_);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;

 private:
  pthread_attr_t before_;
};

}  // namespace lumidex
