#pragma once
// Writing a whole file so that it never stands half written.

#include <string>
#include <string_view>

namespace lumidex {

// Replaces the content of the file, or makes it, by a temporary file beside it that takes its name at the
// end; the mode stays as it was, and a symbolic link stays one. Where no file can be made beside it, or it is
// a device, it is written in place. Raises PathNotFound, PathFileAccess, PermissionDenied or DiskFull, and
// keeps the old content then.
void WriteFile(const std::string& path, std::string_view content);

}  // namespace lumidex
