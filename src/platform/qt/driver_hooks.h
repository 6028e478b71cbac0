#pragma once
// What a driver of scenarios needs of the real windows.

#include <string>

#include "platform/qt/form_views.h"

namespace lumidex {

class QtDriverHooks final {
 public:
  explicit QtDriverHooks(FormViews& views) : views_(views) {}

  // Serves events until nothing is pending, so that the windows show what the controls hold.
  void Settle();
  // Saves the window in front, a dialog of the desktop's before one of the program's, as a PNG file. False
  // when no window is on the screen or the file can not be written.
  bool Screenshot(const std::string& file);

 private:
  FormViews& views_;
};

}  // namespace lumidex
