#pragma once
// The tips of the day: one line of a text file, picked at random.

#include "forms/app.h"

namespace lumidex {

// Reads the tips, one a line, and picks a first one. False for an empty path or a file that is not there.
bool LoadTips(App& app, std::string path);
// Picks a tip at random; the same one can come twice in a row.
void DoNextTip(App& app);
// Shows the picked tip; with no tips nothing is changed.
void DisplayCurrentTip(App& app);

// The stored choice whether tips are shown at start; True when nothing was stored.
bool ShowsTipsAtStartup(App& app);
void StoreShowsTipsAtStartup(App& app, int value);

// What the window does when it is loaded: it fills itself, or unloads itself when the user wants no tips.
void PrepareTipWindow(App& app);

}  // namespace lumidex
