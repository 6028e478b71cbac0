#pragma once
// Expectations about the dialogs that the program has shown, each told once and in their order.

#include "scenario/arguments.h"
#include "scenario/execution.h"

namespace lumidex::scenario {

// False when the expectation is about something else; throws Failure when it does not hold.
bool CheckShownDialog(Execution& run, Arguments& words);

}  // namespace lumidex::scenario
