#pragma once
// Files that keep the Display list with its current position: the standard list "Lumidex.Lst" beside the
// program, and the user's own. All have one format.

#include "forms/app.h"

namespace lumidex {

// Writes the standard list; an empty Display list leaves the file as it is. Raises what writing raises.
void SaveStandardList(App& app);

// Loads the standard list behind what the Display list holds; nothing when there is no such file. Both loads
// raise InputPastEnd for a file with fewer entries than its header says, with the list as far as it got.
void LoadStandardList(App& app);
// Replaces the Display list by the file.
void LoadUserList(App& app, std::string path);

// Selects and so shows the current entry after a load; raises InvalidCall when the list has no such entry.
// The count of the last load decides, also when there was none just now.
void FinishListLoad(App& app);

}  // namespace lumidex
