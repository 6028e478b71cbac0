#include "windows/drive_and_directory.h"

#include "base/run_time_error.h"

namespace lumidex {
namespace {

void FollowDrive(App& app, DriveList& drives, DirList& directories) {
  try {
    // A drive alone means the directory that is current on it, and that is where the list stands already.
    if (app.platform.files.DriveOf(directories.Path()) == drives.Drive()) return;
    directories.SetPath(drives.Drive());
  } catch (const RunTimeError&) {
    drives.SetDrive(directories.Path());
  }
}

}  // namespace

void JoinDriveAndDirectory(App& app, DriveList& drives, DirList& directories) {
  drives.OnChange = [&app, &drives, &directories] { FollowDrive(app, drives, directories); };
  directories.OnKeyPress = [&directories](int keyCode) {
    constexpr int space = 32;
    if (keyCode == space) directories.OpenHighlighted();
  };
  directories.OnLostFocus = [&directories] { directories.OpenHighlighted(); };
}

}  // namespace lumidex
