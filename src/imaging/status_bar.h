#pragma once
// What the status bar says about the current picture.

#include "forms/app.h"

namespace lumidex {

// `text` is a path or any message, shown in proper case. With image information panel 2 names the file and
// panel 3 tells its size and depth. Raises InvalidCall, with both panels written, when the text ends in no
// known file type.
void UpdateStatusBar(App& app, std::string text, bool withImageInfo);

// The same for callers that go on as if the type picture had been left alone.
void UpdateStatusBarQuietly(App& app, std::string text, bool withImageInfo);

// Puts the bitmap of a type into panel 2 of the status bar and yields. An ending that is none of the 29, or
// not of four characters with its point, raises InvalidCall and leaves the panel alone.
void ShowFileTypeIcon(App& app, std::string extension);

}  // namespace lumidex
