#pragma once
// The pattern of a search, from the file types that are ticked in the preferences.

#include "forms/app.h"

namespace lumidex {

// The pattern of the ticked types, as "*.BMP;*.JPG;*.jpe"; also stored in FilePattern.
std::string BuildFilePattern(App& app);

}  // namespace lumidex
