#pragma once
// The picture of the command line, decoded while the window system is still being connected to.

#include <string>

#include "ports/decoding.h"

namespace lumidex {

class EarlyPicture {
 public:
  // Begins with the file named by a command line of one path in double quotes; one that does not open is
  // nobody's business yet. Pixels are made of the size at which it will be shown or, where nobody can tell,
  // for the largest screen. Whoever opens the file first takes it.
  EarlyPicture(DecodingService& decoding, const std::string& commandLine,
               DecodingService::ShownSize shown = {});

 private:
  DecodingService::Client client_;
};

}  // namespace lumidex
