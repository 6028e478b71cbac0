#include "platform/qt/window_control.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>

#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

const QScreen* ScreenOf(const FormView* view) {
  return view ? view->screen() : QGuiApplication::primaryScreen();
}

}  // namespace

bool QtWindowControl::SetWindowPos(WindowHandle window, WindowHandle insertAfter, int, int, int, int,
                                   unsigned) {
  if (insertAfter != HWND_TOPMOST) return false;
  views_.MakeTopmost(window);
  return true;
}

bool QtWindowControl::SetForegroundWindow(WindowHandle window) {
  FormView* view = views_.ViewOf(window);
  if (!view || !view->isVisible()) return false;
  view->raise();
  view->activateWindow();
  return true;
}

std::int32_t QtWindowControl::SendMessageA(WindowHandle, unsigned, std::uintptr_t, std::intptr_t) {
  return 0;
}

WindowHandle QtWindowControl::GetFocus() {
  const FormView* active = views_.Active();
  if (!active) return 0;
  const Control* control = active->GetForm().ActiveControl();
  return control ? control->hwnd() : 0;
}

float QtWindowControl::TextWidth(WindowHandle window, std::string_view text) {
  const FormView* view = views_.ViewOf(window);
  const QFontMetrics metrics(view ? view->font() : QApplication::font());
  return views_.GetUnits().Twips(metrics.horizontalAdvance(ToQt(text)));
}

float QtWindowControl::ScreenWidth() {
  return views_.GetUnits().Twips(ScreenOf(views_.Active())->size().width());
}

float QtWindowControl::ScreenHeight() {
  return views_.GetUnits().Twips(ScreenOf(views_.Active())->size().height());
}

}  // namespace lumidex
