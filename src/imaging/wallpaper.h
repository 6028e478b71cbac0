#pragma once
// The current picture on the desktop.

#include "forms/app.h"

namespace lumidex {

// These three write the picture of the main window to the wallpaper file beside the settings, in its own
// size, and make it the wallpaper. Raise what SavePicture raises, with the desktop untouched.
void SetWallpaperCentered(App& app);
void SetWallpaperStretched(App& app);
void SetWallpaperTiled(App& app);
// Takes the wallpaper away; the file stays.
void ClearWallpaper(App& app);

// Hands a file, or none, to the desktop. What the desktop answers is not looked at.
void ApplyWallpaper(App& app, std::string path, bool noTile, bool stretch);

}  // namespace lumidex
