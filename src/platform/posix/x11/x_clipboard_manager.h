#pragma once
// Asks the X desktop's clipboard manager, where one runs, to take over what the clipboard holds, so that it
// outlives the program that put it there.

#include <string>
#include <vector>

#include "platform/posix/x11/x_screen.h"

namespace lumidex {

class ClipboardTakeOver {
 public:
  // Asks on the screen of `display`, as in $DISPLAY, for the kinds named in `targets`. The manager fetches
  // them from whoever owns the clipboard, who has to serve the window system meanwhile.
  ClipboardTakeOver(const std::string& display, const std::vector<std::string>& targets);

  // Whether a manager was asked and has not answered yet.
  bool IsAwaited();
  // Readable when there may be an answer; of no use when none is awaited.
  int Descriptor() const { return xcb_get_file_descriptor(screen_.Connection()); }

 private:
  XScreen screen_;
  bool isAwaited_ = false;
};

}  // namespace lumidex
