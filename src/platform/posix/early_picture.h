#pragma once
// The picture of the command line, decoded on a thread of its own while the window system is still being
// connected to.

#include <string>
#include <thread>

#include "pictures/picture.h"
#include "ports/file_system.h"

namespace lumidex {

class EarlyPicture {
 public:
  // Opens the file named by a command line of one path in double quotes; a file that does not open is
  // nobody's business yet. Pixels are made for a screen of usual size.
  EarlyPicture(const FileSystem& files, const std::string& commandLine);

  const std::string& Path() const { return path_; }
  // Empty when there is none.
  const Picture& GetPicture() const { return picture_; }

 private:
  std::string path_;
  Picture picture_;
  std::jthread decoding_;
};

}  // namespace lumidex
