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

// The program is to end whatever the user does: as closing the main window ends it. Before that window has
// stood nothing is saved, since the settings may not have been read by then.
void EndFromOutside(App& app);

// Saves as the closing of the main window would, reports nothing and goes on.
void SaveBeforeLeaving(App& app);

}  // namespace lumidex
