#pragma once
// The 29 picture file types as the check boxes of the preferences hold them.

#include "forms/app.h"

namespace lumidex {

// The pattern of the ticked types, as "*.BMP;*.JPG;*.jpe"; also stored in FilePattern.
std::string BuildFilePattern(App& app);

// Puts the bitmap of a type into panel 2 of the status bar and yields. An ending that is none of the 29, or
// not of four characters with its point, raises InvalidCall and leaves the panel alone.
void ShowFileTypeIcon(App& app, const std::string& extension);

}  // namespace lumidex
