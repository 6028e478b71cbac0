#pragma once
// Paths as the program takes them apart, shortens them and asks whether they exist.

#include "forms/app.h"

namespace lumidex {

// The program's folder, ending in a separator.
std::string GetAppPath(App& app);

// True when a lookup of `path` yields a visible file. A name with wildcards exists when it matches anything;
// a lookup that fails is False, and so is the empty text.
bool FileExists(const App& app, const std::string& path);
// The same for a path that was looked at.
bool FileExists(const App& app, const std::string& path, const std::optional<FileFacts>& facts);

// Takes a full path apart; each output stays untouched where it is not told. An empty path changes nothing.
// `drive` is the first two characters, or empty where paths have no drives; `directory` runs up to and
// including the last separator; `file` is what follows it.
void SplitPath(const App& app, const std::string& path, std::string& drive, std::string& directory,
               std::string& file);

// A path of more than `maxLength` characters, shortened to its first three, "..." and its last directories.
std::string ShortenPath(const App& app, const std::string& path, std::int32_t maxLength);

}  // namespace lumidex
