#pragma once
// What a person drops on the main window.

#include <string>
#include <vector>

#include "forms/app.h"

namespace lumidex {

// Files go to the end of the Display list, the first of them comes up; what no longer fits in is left out.
// Folders are searched with their sub folders into the Selection list, which begins anew. What is not there
// is passed over.
void TakeInDropped(App& app, std::vector<std::string> paths);

}  // namespace lumidex
