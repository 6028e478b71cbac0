#pragma once
// Which error a step raises, for tests of error numbers.

#include "base/run_time_error.h"

namespace lumidex {

// 0 when it raises none.
template <class Step>
int NumberRaisedBy(Step&& step) {
  try {
    step();
  } catch (const RunTimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

}  // namespace lumidex
