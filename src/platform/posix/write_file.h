#pragma once
// Writing a whole file so that it never stands half written.

#include <functional>
#include <string>
#include <string_view>

#include "pictures/byte_sink.h"

namespace lumidex {

// Replaces the content of the file with what `produce` gives the sink, or makes it, by a temporary file
// beside it that takes its name at the end; the mode stays as it was, and a symbolic link stays one. Raises
// PathNotFound, PathFileAccess, PermissionDenied or DiskFull, and what `produce` raises; keeps the old
// content then. Where no file can be made beside it, or it is a device, it is written in place as by
// OverwriteFile.
void WriteFile(const std::string& path, const std::function<void(ByteSink&)>& produce);

// Writes the file in place: what it held is gone when it is opened, and it stays empty when the content does
// not fit. Raises as WriteFile does.
void OverwriteFile(const std::string& path, std::string_view content);

}  // namespace lumidex
