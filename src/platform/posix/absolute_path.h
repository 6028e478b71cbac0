#pragma once
// Paths as a person gives them, made absolute.

#include <string>

#include "platform/posix/environment.h"

namespace lumidex {

// `path`, from `currentDirectory` on where it is relative, without `.`, `..` and doubled separators in it.
// The names of symbolic links stay, unless a `..` leads out of one: then it leads to where the system takes
// it. A directory that is named with a separator at its end, as a shell completes it, has the name without.
std::string AbsolutePath(const std::string& path, const std::string& currentDirectory);

// The process's directory under the name by which the user went there.
std::string CurrentDirectoryName(const Environment& environment);

}  // namespace lumidex
