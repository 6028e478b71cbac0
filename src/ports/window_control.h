#pragma once
// What the program asks of the window manager about single windows, under the calls' own names.

#include <cstdint>
#include <string_view>

namespace lumidex {

// Names a form or a control towards the platform; 0 is none.
using WindowHandle = std::uintptr_t;

inline constexpr WindowHandle HWND_TOPMOST = static_cast<WindowHandle>(-1);

class WindowControl {
 public:
  virtual ~WindowControl() = default;
  virtual bool SetWindowPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width,
                            int height, unsigned flags) = 0;
  virtual bool SetForegroundWindow(WindowHandle window) = 0;
  virtual std::int32_t SendMessageA(WindowHandle window, unsigned message, std::uintptr_t wParam,
                                    std::intptr_t lParam) = 0;
  // The control that has the keyboard.
  virtual WindowHandle GetFocus() = 0;
  // In twips, in the window's own font.
  virtual float TextWidth(WindowHandle window, std::string_view text) = 0;
  // How many pixels of the screen fit into a box in the window along one side, The box begins at
  // `start` and is `length` long, and its frame takes `border` off at both ends, all in twips.
  virtual float PixelsInside(WindowHandle window, float start, float length, float border) = 0;
  // Size of the screen that the window stands on, in twips.
  virtual float ScreenWidth() = 0;
  virtual float ScreenHeight() = 0;
};

}  // namespace lumidex
