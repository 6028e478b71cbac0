#include "platform/qt/pointer_watch.h"

#include <QMouseEvent>
#include <QPointer>

#include "platform/qt/form_view.h"

namespace lumidex {
namespace {

int ButtonsOf(Qt::MouseButtons buttons) {
  return (buttons & Qt::LeftButton ? 1 : 0) + (buttons & Qt::RightButton ? 2 : 0) +
         (buttons & Qt::MiddleButton ? 4 : 0);
}

int ShiftOf(Qt::KeyboardModifiers keys) {
  return (keys & Qt::ShiftModifier ? 1 : 0) + (keys & Qt::ControlModifier ? 2 : 0) +
         (keys & Qt::AltModifier ? 4 : 0);
}

}  // namespace

PointerWatch::PointerWatch(FormView& view, Pointed& pointed, QWidget* widget, QObject* parent)
    : QObject(parent), view_(view), pointed_(pointed), widget_(widget) {
  if (pointed.OnMouseMove) widget->setMouseTracking(true);
  widget->installEventFilter(this);
}

MouseState PointerWatch::StateOf(const QMouseEvent& event, int button) const {
  const QPoint corner = widget_ == &view_ ? view_.DrawingCorner() : QPoint(0, 0);
  const QPoint place = event.position().toPoint() - corner;
  const Units& units = view_.GetUnits();
  return {button, ShiftOf(event.modifiers()), units.Twips(place.x()), units.Twips(place.y())};
}

void PointerWatch::Release(const QMouseEvent& event) {
  const bool isClick = std::exchange(isClick_, false) && event.button() == Qt::LeftButton &&
                       widget_->rect().contains(event.position().toPoint());
  const QPointer<PointerWatch> self = this;
  const MouseState mouse = StateOf(event, ButtonsOf(event.button()));
  view_.Serve([this, mouse] { pointed_.UserMouseUp(mouse); });
  // The control may be gone by then.
  if (self && isClick) view_.Serve([this] { pointed_.UserClick(); });
}

bool PointerWatch::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      if (pointed_.HearsMouse()) break;
      return false;
    default:
      return false;
  }
  const auto& mouse = *static_cast<const QMouseEvent*>(event);
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      isClick_ = true;
      const MouseState state = StateOf(mouse, ButtonsOf(mouse.button()));
      view_.Serve([this, state] { pointed_.UserMouseDown(state); });
      break;
    }
    case QEvent::MouseButtonDblClick:
      if (mouse.button() == Qt::LeftButton) view_.Serve([this] { pointed_.UserDoubleClick(); });
      break;
    case QEvent::MouseButtonRelease:
      Release(mouse);
      break;
    default: {
      const MouseState state = StateOf(mouse, ButtonsOf(mouse.buttons()));
      view_.Serve([this, state] { pointed_.UserMouseMove(state); });
    }
  }
  return true;
}

}  // namespace lumidex
