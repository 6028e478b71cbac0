#pragma once
// Expectations that are told row by row: lists, grids, menus, files and the log.

#include "scenario/arguments.h"
#include "scenario/execution.h"

namespace lumidex::scenario {

// False when the words behind "expect" speak of something else; throws Failure when the rows are others.
bool CheckBlock(Execution& run, Arguments& words);

}  // namespace lumidex::scenario
