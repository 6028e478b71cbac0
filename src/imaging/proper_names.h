#pragma once
// Names of files as they are shown.

#include "forms/app.h"

namespace lumidex {

// Lower case but for the first character and those after a blank, a point or a separator.
std::string ProperCaseName(const App& app, const std::string& name);
// The part behind the last separator, in proper case.
std::string ProperFileName(const App& app, const std::string& path);

}  // namespace lumidex
