#pragma once
// From a path to a picture: opens the file, hands its bytes to the decoders, adds the palette file that some
// formats keep beside the picture.

#include "pictures/picture.h"
#include "ports/file_system.h"

namespace lumidex {

// The file as decoders want it. Raises what FileSystem::Open raises.
PictureData OpenPictureData(const FileSystem& files, const std::string& path);

// Raises what FileSystem::Open raises, and InvalidPicture when the file is no picture.
Picture OpenPicture(const FileSystem& files, const std::string& path, const OpenOptions& options = {});

}  // namespace lumidex
