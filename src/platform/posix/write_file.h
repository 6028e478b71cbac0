#pragma once
// Writing a whole file so that it never stands half written.

#include <functional>
#include <string>

#include "pictures/byte_sink.h"

namespace lumidex {

// Replaces the content of the file with what `produce` gives the sink, or makes it, by a temporary file
// beside it that takes its name at the end; the mode stays as it was, and a symbolic link stays one. Where no
// file can be made beside it, or it is a device, it is written in place. Raises PathNotFound, PathFileAccess,
// PermissionDenied or DiskFull, and what `produce` raises; keeps the old content then.
void WriteFile(const std::string& path, const std::function<void(ByteSink&)>& produce);

}  // namespace lumidex
