#pragma once
// The user's folders as the XDG conventions have them, from the environment.

#include <functional>
#include <string>

namespace lumidex {

// Reads a variable; empty when it is not set.
using Environment = std::function<std::string(const char* name)>;
std::string ReadEnvironment(const char* name);

// Without a separator at the end. A variable that is not set, or holds no absolute path, counts as its
// default.
std::string HomeFolder(const Environment& environment);
std::string DataHome(const Environment& environment);    // $XDG_DATA_HOME, ~/.local/share
std::string ConfigHome(const Environment& environment);  // $XDG_CONFIG_HOME, ~/.config
std::string CacheHome(const Environment& environment);   // $XDG_CACHE_HOME, ~/.cache

// Makes a folder and those above it that are missing, for the user alone. False when that can't be done.
bool MakeFolders(const std::string& path);

}  // namespace lumidex
