// The main window's items that explain the program.

#include "forms/WPaper2.h"
#include "windows/windows.h"

namespace lumidex {

void WireHelp(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.mnuHelpHelp.OnClick = [&] {
    constexpr int maximized = 3;
    app.platform.shell.ShellExecuteA(window.hwnd(), "Open", app.AppPath + "Lumidex100.chm", "0", "0",
                                     maximized);
  };
}

}  // namespace lumidex
