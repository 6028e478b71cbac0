#pragma once
// Writing a whole file so that it never stands half written and nothing is lost on the way.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "pictures/byte_sink.h"

namespace lumidex {

// Replaces the content of the file with what `produce` gives the sink, or makes it, by a temporary file
// beside it that takes its name at the end; the mode stays as it was, and a symbolic link stays one. Raises
// PathNotFound, PathFileAccess, PermissionDenied or DiskFull, and what `produce` raises; keeps the old
// content then. Where no file can be made beside it, or it is a device, it is written in place.
void WriteFile(const std::string& path, const std::function<void(ByteSink&)>& produce);

// Writes the file anew after what it held has taken the name that `aside` gives for it, and removes that at
// the end. Raises as WriteFile does; where that happens after the file has stepped aside, OldContentKept, and
// the file is empty then. A device is written in place.
void OverwriteFile(const std::string& path, std::string_view content,
                   const std::function<std::string(const std::string& path)>& aside);

// Opens the file, or makes it, to write behind what it holds, or behind nothing when it is to be emptied.
// Each write stands in the file at once. Raises PathNotFound, PathFileAccess or PermissionDenied; writing
// raises DiskFull.
std::unique_ptr<ByteSink> OpenFileAtEnd(const std::string& path, bool emptied);

}  // namespace lumidex
