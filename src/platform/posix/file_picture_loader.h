#pragma once
// The platform's own picture loader: the program's decoders over the file system.

#include "ports/open_picture.h"
#include "ports/services.h"

namespace lumidex {

class FilePictureLoader final : public PictureLoader {
 public:
  explicit FilePictureLoader(const FileSystem& files) : files_(files) {}
  Picture LoadPicture(const std::string& path) override { return OpenPicture(files_, path); }

 private:
  const FileSystem& files_;
};

}  // namespace lumidex
