#pragma once
// The single instance, saving and leaving.

#include "forms/app.h"

namespace lumidex {

// Ends the process silently when another instance is running.
void CheckPrevInstance(App& app);

// The settings first, then the standard list. In command line mode it returns behind the settings and leaves
// SavingSettings set.
void SaveSettingsAndList(App& app);

// Saves, unloads the forms in their order and ends the process. While SavingSettings stays set it stands
// still.
void ExitProgram(App& app);

}  // namespace lumidex
