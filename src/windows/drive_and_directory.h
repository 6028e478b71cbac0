#pragma once
// What a drive list and a directory list have to do with each other in every dialog that holds both.

#include "controls/file_lists.h"
#include "forms/app.h"

namespace lumidex {

// The directory list goes where the drive list points; a drive that isn't ready sets the drive list back. The
// space bar and the loss of the keyboard open the highlighted directory. The lists must live as long as App.
void JoinDriveAndDirectory(App& app, DriveList& drives, DirList& directories);

}  // namespace lumidex
