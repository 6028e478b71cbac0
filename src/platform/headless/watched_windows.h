#pragma once
// The window manager of the headless world: it knows which of the forms it watches stand on the screen, in
// which order, and where the keyboard is. A character is six pixels wide.

#include <map>
#include <set>

#include "controls/form.h"
#include "platform/headless/call_log.h"

namespace lumidex {

class Animation;

class WatchedWindows final : public WindowControl {
 public:
  explicit WatchedWindows(CallLog& log) : log_(log) {}

  bool SetWindowPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                    unsigned flags) override;
  bool SetForegroundWindow(WindowHandle window) override;
  std::int32_t SendMessageA(WindowHandle window, unsigned message, std::uintptr_t wParam,
                            std::intptr_t lParam) override;
  WindowHandle GetFocus() override;
  float TextWidth(WindowHandle window, std::string_view text) override;
  // Of 15 twips each, and not whole ones.
  float PixelsInside(WindowHandle window, float start, float length, float border) override;
  float ScreenWidth() override { return screenWidth; }
  float ScreenHeight() override { return screenHeight; }

  // The form must stay until Forget.
  void Watch(Form& form);
  void Forget();
  // The visible form that is in front; null when none is.
  Form* Front() const;
  // The modal form that keeps the user from all others; null when none does.
  Form* FrontModal() const;
  // What the window system calls a window or a control: "WPaper2.LstRight".
  std::string NameOf(WindowHandle window) const;

  // In twips: 1024 x 768 pixels.
  float screenWidth = 15360.0F;
  float screenHeight = 11520.0F;

 private:
  void Raise(Form& form);
  // A line for each file that it opens.
  void WatchOpening(Animation& animation);

  CallLog& log_;
  std::vector<Form*> shown_;  // the front one last
  std::set<const Form*> loaded_;
  std::map<WindowHandle, std::string> names_;
  std::vector<Connection> connections_;
  Form* keyboard_ = nullptr;  // the form that has the keyboard
};

}  // namespace lumidex
