#pragma once
// Asks the X server itself not to blank the screen.

#include <memory>

#include "platform/posix/environment.h"
#include "platform/posix/screen_awake.h"

namespace lumidex {

// Null without an X server, or when that one can't. Ends with the connection, however that ends.
std::unique_ptr<Grant> SuspendScreenSaver(const Environment& environment);

}  // namespace lumidex
