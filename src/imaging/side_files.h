#pragma once
// Where the stored thumbnail and the stored facts of a picture lie, which are there even when its disc is
// gone: in a folder whose tree mirrors that of the pictures. A drive letter does not count, so the same path
// on two drives shares its side files. Nobody here writes them.

#include "forms/app.h"

namespace lumidex {

std::string StoredThumbnailPath(const App& app, const std::string& picturePath);
std::string StoredFactsPath(const App& app, const std::string& picturePath);

}  // namespace lumidex
