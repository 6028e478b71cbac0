#pragma once
// Which buttons of the toolbar show.

#include "forms/app.h"

namespace lumidex {

// Shows button i + 1 of the toolbar when entry i of List1 is ticked and hides it when it is not, for all of
// them.
void ApplyToolbarList(App& app);

}  // namespace lumidex
