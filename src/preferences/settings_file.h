#pragma once
// The settings file "Lumidex.Cfg" beside the program: 57 lines of text, a dump of controls of the preferences
// and of a few globals.

#include "forms/app.h"

namespace lumidex {

// Replaces the file by the present state of the controls. Raises what writing raises.
void WriteSettings(App& app);

// Takes the file into the controls and the global record; without a file nothing changes. Lines may come in
// any order, be missing or be unknown. Raises InvalidPropertyValue for a check box value that is none,
// and Overflow for a number beyond 16 bits. An alternate background that can't be read leaves the window its
// colour.
void ReadSettings(App& app);

}  // namespace lumidex
