// Puts the pieces together: the desktop platform, the program on it, and its event loop.

#include "platform/qt/run.h"
#include "windows/windows.h"

int main(int argc, char** argv) {
  return lumidex::RunOnDesktop(argc, argv, [](lumidex::App& app) {
    lumidex::WireWindows(app);
    // The conversion of whole lists is a command of the shipped program.
    app.WPaper2.mnuFileBatchConvertImages.Visible = true;
    app.WPaper2.KeepDesign();
    app.WPaper2.Load();
  });
}
