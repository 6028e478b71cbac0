#pragma once
// The rule that enables and disables menus, buttons and toolbar buttons.

#include "forms/app.h"

namespace lumidex {

// Decides from whether either list is empty and from the number in lblCount; yields at its end. May be called
// at any time.
void UpdateEnableState(App& app);

}  // namespace lumidex
