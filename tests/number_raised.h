#pragma once
// Which error a step raises, for tests of error numbers and paths.

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

// The file or folder that what it raises is about; empty for none.
template <class Step>
std::string PathRaisedBy(Step&& step) {
  try {
    step();
  } catch (const RunTimeError& error) {
    return error.Path();
  }
  return {};
}

}  // namespace lumidex
