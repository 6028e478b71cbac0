#pragma once
// What becomes of an error that no trap has caught.

#include <functional>

#include "forms/app.h"

namespace lumidex {

// Runs one event; whatever exception comes out of it is shown and ends the process with exit code 1. Further
// ones behind the message are dropped.
void RunEvent(App& app, const std::function<void()>& event);

}  // namespace lumidex
