#pragma once
// Single windows under the names of the calls that the program makes.

#include <optional>

#include "platform/qt/form_views.h"
#include "platform/qt/text_widths.h"
#include "ports/window_control.h"

namespace lumidex {

class QtWindowControl final : public WindowControl {
 public:
  explicit QtWindowControl(FormViews& views) : views_(views) {}

  // Only what the program uses: HWND_TOPMOST with neither move nor size.
  bool SetWindowPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                    unsigned flags) override;
  bool SetForegroundWindow(WindowHandle window) override;
  // No message has an effect here; the answer is 0.
  std::int32_t SendMessageA(WindowHandle window, unsigned message, std::uintptr_t wParam,
                            std::intptr_t lParam) override;
  WindowHandle GetFocus() override;
  float TextWidth(WindowHandle window, std::string_view text) override;
  // Whole pixels; those that the window's edges cut do not count.
  float PixelsInside(WindowHandle window, float start, float length, float border) override;
  float ScreenWidth() override;
  float ScreenHeight() override;

 private:
  FormViews& views_;
  std::optional<TextWidths> widths_;  // of the font measured last
};

}  // namespace lumidex
