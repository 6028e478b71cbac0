#pragma once
// The current picture on the main window: loading, zoom, fit and place.

#include "forms/app.h"

namespace lumidex {

// Brings a file up in the picture area at `zoom`. A file that is not there leaves the old picture.
// `alreadyLoaded` spares the loading. Raises Overflow when the zoomed size leaves 16 bits; Image1 is hidden
// then.
void DisplayCurrentImage(App& app, const std::string& path, bool alreadyLoaded, float zoom);

// While the program idles, has the pictures decoded that stand next to the selected entry of the Display
// list: first the one that comes next, then the one before, round the ends as the steps go.
void ReadNeighboursAhead(App& app);

// Loads the file into the working image and gives Image1 its picture; files with ".GIF" anywhere in their
// path come through the platform's own loader. Errors are dropped.
void LoadPictureFile(App& app, const std::string& path);

// Gives Image1 the picture that the working image now holds.
void ShowWorkingPicture(App& app);

// Facts of what the working image holds: size in pixels, bits per pixel. An error leaves the outputs as they
// were; yields. The path is not used.
void GetImageInfo(App& app, const std::string& path, std::int16_t& width, std::int16_t& height, float& depth);

// Lower case but for the first character and those after a blank, a point or a separator.
std::string ProperCaseName(const App& app, const std::string& name);
// The part behind the last separator, in proper case.
std::string ProperFileName(const App& app, const std::string& path);

// The click of an item of the zoom menu.
void SelectZoomLevel(App& app, int level);
// The toolbar's zoom steps; they stop at the ends.
void StepZoomDown(App& app);
void StepZoomUp(App& app);

}  // namespace lumidex
