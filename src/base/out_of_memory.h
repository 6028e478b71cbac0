#pragma once
// Lack of memory as the program's own error, which its traps know.

#include <new>
#include <utility>

#include "base/run_time_error.h"

namespace lumidex {

// Runs a step; memory that a container can not have raises OutOfMemory.
template <class Step>
decltype(auto) TellingOutOfMemory(Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const std::bad_alloc&) {
    throw RunTimeError(ErrorNumber::OutOfMemory);
  }
}

}  // namespace lumidex
