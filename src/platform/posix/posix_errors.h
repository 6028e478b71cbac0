#pragma once
// The numbers under which the system's errors are known to the program.

#include "base/run_time_error.h"

namespace lumidex {

// For something that was to be read or changed at `error` (an errno); a missing directory is PathNotFound.
[[noreturn]] void RaiseSystemError(int error, const std::string& path);

}  // namespace lumidex
