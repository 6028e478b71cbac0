#pragma once
// A file on disk as a source of picture bytes, read in place so that opening a long file costs nothing.

#include <memory>
#include <string>

namespace lumidex {

class ByteSource;

// Opens a regular file for reading. Raises FileNotFound when there is none, PermissionDenied when it may
// not be read, and PathFileAccess for directories, pipes, devices and everything else.
std::shared_ptr<const ByteSource> OpenFileSource(const std::string& path);

}  // namespace lumidex
