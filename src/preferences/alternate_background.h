#pragma once
// The user's own background picture of the main window, kept as "MenuVBgd.Bmp" beside the program.

#include "forms/app.h"

namespace lumidex {

// Gives the main window the kept picture; false when there is none. Raises InvalidPicture when it can't be
// read.
bool ShowAlternateBackground(App& app);

// The box was ticked or cleared: shows the kept picture, or takes the picture away.
void SwitchAlternateBackground(App& app);

// Asks for a picture file, shows it and keeps a bitmap copy in place of the one before. What fails on the way
// ends it silently; a failure behind the removal of the old copy leaves none.
void ChooseAlternateBackground(App& app);

}  // namespace lumidex
