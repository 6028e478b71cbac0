#pragma once
// The picture of the command line, decoded on a thread of its own while the window system is still being
// connected to.

#include <string>
#include <thread>

#include "ports/open_picture.h"

namespace lumidex {

class EarlyPicture {
 public:
  // Opens the file named by a command line of one path in double quotes; a file that does not open is
  // nobody's business yet. Pixels are made for a screen of usual size.
  EarlyPicture(const FileSystem& files, const std::string& commandLine);

  // Its picture is empty when there is none.
  const OpenedPicture& Opened() const { return opened_; }

 private:
  OpenedPicture opened_;
  std::jthread decoding_;
};

}  // namespace lumidex
