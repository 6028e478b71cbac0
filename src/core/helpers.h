#pragma once
// The helpers that everybody calls: paths, the zoom factor, windows.

#include "forms/app.h"

namespace lumidex {

// The program's folder, ending in a separator.
std::string GetAppPath(App& app);

// True when a lookup of `path` yields a visible file. A name with wildcards exists when it matches anything;
// a lookup that fails is False, and so is the empty text.
bool FileExists(App& app, const std::string& path);

// Ends the process silently when another instance is running.
void CheckPrevInstance(App& app);

void MakeWindowTopmost(App& app, WindowHandle hwnd);

// Takes a full path apart; each output stays untouched where it is not told. An empty path changes nothing.
// `drive` is the first two characters, or empty where paths have no drives; `directory` runs up to and
// including the last separator; `file` is what follows it.
void SplitPath(const App& app, const std::string& path, std::string& drive, std::string& directory,
               std::string& file);

// A path of more than `maxLength` characters, shortened to its first three, "..." and its last directories.
std::string ShortenPath(const App& app, const std::string& path, std::int32_t maxLength);

// The factor of the first checked item of the zoom menu, 0 when none is.
float GetZoomFactor(App& app);
// The factor of one item: 0.25 to 2 in quarters for 1 to 8, then 3, 4, 5; 0 for others.
float ZoomFactorOf(int level);

// Opens a page of the preferences, modally.
void OpenPreferencesPage(App& app, int tab);

}  // namespace lumidex
