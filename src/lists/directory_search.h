#pragma once
// The directory search: from the dialog through the walk to the filled Selection list.

#include <string>
#include <vector>

#include "forms/app.h"

namespace lumidex {

// The whole operation. The Selection list is cleared before the dialog opens, so cancelling leaves it empty.
void StartDirectorySearch(App& app);

// The trees below these folders, one after the other, as a search that needs no dialog; Dir1 is back where it
// was at the end.
void SearchFolders(App& app, std::vector<std::string> folders);

// The tree below Dir1.Path; with no file type ticked it says so. A highlighted row other than the directory
// itself is only moved to.
void SearchSubFolders(App& app);
// The files of Dir1.Path alone; says so when they are more than the list can hold.
void SearchOneDirectory(App& app);

// Depth first: the subdirectories from the last to the first, then the directory's own files, then back to
// `BackUp` (empty at the top). True asks the caller to stop. `DirCount` is handed on and never read.
// Each level takes the names of its subdirectories once. A level that another search has overtaken in its
// yields adds nothing more and leaves Dir1 alone.
bool WalkDirectory(App& app, std::string NewPath, std::int16_t DirCount, std::string BackUp);

}  // namespace lumidex
