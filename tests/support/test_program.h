#pragma once
// The whole program on the headless platform, for tests of its routines.

#include <gtest/gtest.h>

#include "forms/WPaper2.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/script_ends.h"
#include "windows/windows.h"

namespace lumidex {

// A black 24-bit bitmap of the given size, small enough for tests of anything but pixels.
std::string BitmapFile(int width, int height);

class TestProgram : public testing::Test {
 protected:
  // Shows the main window without the start around it; the program is idle.
  void ShowMainWindow();
  // Puts files of that size into the file system and their paths into the Display list, with nothing
  // selected.
  void FillDisplayList(int count, int width = 40, int height = 30);
  void FillSelectionList(int count);
  std::string DisplayText(int position) { return app.WPaper2.LstRight.List(position); }
  std::string PanelText(int panel) { return app.WPaper2.StatusBar1.Panel(panel).Text; }

  HeadlessPlatform platform;
  App app{platform.ports};
};

}  // namespace lumidex
