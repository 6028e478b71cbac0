#include "platform/qt/window_control.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

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
  if (!view || !widths_ || !widths_->AreOf(view->font())) {
    const QFont font = view ? view->font() : QApplication::font();
    if (!widths_ || !widths_->AreOf(font)) widths_.emplace(font);
  }
  return views_.GetUnits().Twips(widths_->Of(text));
}

float QtWindowControl::PixelsInside(WindowHandle window, float start, float length, float border) {
  const FormView* view = views_.ViewOf(window);
  const Units& units = view ? view->GetUnits() : views_.GetUnits();
  const double ratio = view ? view->devicePixelRatioF() : qApp->devicePixelRatio();
  const int inside =
      units.Pixels(double{start} + double{length}) - units.Pixels(start) - 2 * units.Pixels(border);
  // At a ratio between whole numbers a box may begin within a pixel.
  const double cut = ratio == std::floor(ratio) ? 0.0 : 0.5;
  return static_cast<float>(std::max(0.0, std::floor(inside * ratio - cut)));
}

float QtWindowControl::ScreenWidth() {
  return views_.GetUnits().Twips(ScreenOf(views_.Active())->size().width());
}

float QtWindowControl::ScreenHeight() {
  return views_.GetUnits().Twips(ScreenOf(views_.Active())->size().height());
}

}  // namespace lumidex
