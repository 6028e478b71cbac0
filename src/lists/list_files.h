#pragma once
// Files that keep the Display list with its current position: the standard list "Lumidex.Lst" beside the
// program, and the user's own. All have one format.

#include "lists/list_load.h"

namespace lumidex {

// Write the standard list, or a list of the user's; a Display list that is empty, or being read just now,
// leaves the file as it is. Raise what writing raises.
void SaveStandardList(App& app);
void SaveUserList(App& app, std::string path);

// Loads the standard list behind what the Display list holds; nothing when there is no such file. Both loads
// raise InputPastEnd for a file with fewer entries than its header says, with the list as far as it got, and
// leave off where they give way to another.
void LoadStandardList(App& app, ListLoad& load);
// Replaces the Display list by the file.
void LoadUserList(App& app, ListLoad& load, std::string path);

// Selects and so shows the current entry after a load; raises InvalidCall when the list has no such entry.
// The count of the last load decides, also when there was none just now. In the yields of a load it leaves
// the selecting to that one.
void FinishListLoad(App& app);
// Its first step alone, for a load that gave way: the list of the command line is gone all the same.
void LeaveCommandLineMode(App& app);

}  // namespace lumidex
