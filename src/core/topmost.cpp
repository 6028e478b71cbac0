#include "core/topmost.h"

namespace lumidex {

void MakeWindowTopmost(App& app, WindowHandle hwnd) {
  app.TopmostFlags = 3;
  app.platform.windows.SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, 0, 0, 3);
}

}  // namespace lumidex
