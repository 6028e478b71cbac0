#pragma once
// Finds a file by a name whose case is not the file's own, as the program's texts have some.

#include <string>

namespace lumidex {

// The path itself when there is something of that name; else the first name of its directory, in the order of
// bytes, that differs from it in case alone; else nothing.
std::string FileNamedLike(const std::string& path);

}  // namespace lumidex
