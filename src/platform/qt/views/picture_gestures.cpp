#include "platform/qt/views/picture_gestures.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/conversions.h"
#include "platform/qt/form_view.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int fullSize = 4;  // the zoom item "100 %"
constexpr double pinchStep = 1.25;

QMenu* NewPopup(FormView& view) {
  auto* popup = new QMenu(&view);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  return popup;
}

}  // namespace

PictureGestures::PictureGestures(FormView& view, WPaper2Window& form)
    : QObject(&view),
      view_(view),
      form_(form),
      area_(view.InsideOf(form.Picture1)),
      image_(view.WidgetOf(form.Image1)) {
  area_->setFocusPolicy(Qt::StrongFocus);
  area_->grabGesture(Qt::PinchGesture);  // of a touch screen; a touch pad's come as events of their own
  area_->installEventFilter(this);
  image_->installEventFilter(this);
}

bool PictureGestures::eventFilter(QObject* watched, QEvent* event) {
  // The rest comes on to the area by itself.
  if (watched == image_ && event->type() != QEvent::Wheel) return false;
  switch (event->type()) {
    case QEvent::Wheel:
      return Turn(*static_cast<QWheelEvent*>(event));
    case QEvent::NativeGesture:
      return Pinch(*static_cast<QNativeGestureEvent*>(event));
    case QEvent::Gesture:
      return Pinch(*static_cast<QGestureEvent*>(event));
    case QEvent::KeyPress:
      return Press(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
      area_->setFocus(Qt::MouseFocusReason);
      return true;
    case QEvent::MouseButtonDblClick:
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) Choose(form_.mnuPictureViewer);
      return true;
    case QEvent::ContextMenu: {
      const auto& asked = *static_cast<QContextMenuEvent*>(event);
      OfferMenus(asked.reason() == QContextMenuEvent::Keyboard ? area_->mapToGlobal(area_->rect().center())
                                                               : asked.globalPos());
      return true;
    }
    default:
      return false;
  }
}

bool PictureGestures::Turn(const QWheelEvent& event) {
  // Fine wheels tell parts of a notch.
  constexpr int notch = 120;
  const int turn = event.angleDelta().y();
  if ((turn > 0) != (turned_ > 0)) turned_ = 0;
  turned_ += turn;
  const bool zooms = event.modifiers().testFlag(Qt::ControlModifier);
  const QPointer<PictureGestures> self = this;
  while (self && std::abs(turned_) >= notch) {
    const bool up = turned_ > 0;
    turned_ -= up ? notch : -notch;
    if (zooms) {
      Zoom(up);
    } else {
      Choose(up ? form_.mnuPicturePrevious : form_.mnuPictureNext);
    }
  }
  return true;
}

bool PictureGestures::Pinch(const QNativeGestureEvent& event) {
  if (event.gestureType() == Qt::BeginNativeGesture) BeginPinch();
  if (event.gestureType() == Qt::ZoomNativeGesture) Pinch(1 + event.value());
  return true;
}

bool PictureGestures::Pinch(const QGestureEvent& event) {
  const auto* pinch = qobject_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (!pinch) return false;
  if (pinch->state() == Qt::GestureStarted) BeginPinch();
  if (pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) Pinch(pinch->scaleFactor());
  return true;
}

void PictureGestures::Pinch(double factor) {
  // No fingers move so far between two events.
  constexpr double most = 4;
  pinched_ *= std::clamp(factor, 1 / most, most);
  const QPointer<PictureGestures> self = this;
  while (self && (pinched_ >= pinchStep || pinched_ * pinchStep <= 1)) {
    const bool larger = pinched_ > 1;
    pinched_ *= larger ? 1 / pinchStep : pinchStep;
    Zoom(larger);
  }
}

bool PictureGestures::Press(const QKeyEvent& event) {
  if (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) return false;
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_PageUp:
      Choose(form_.mnuPicturePrevious);
      return true;
    case Qt::Key_Right:
    case Qt::Key_PageDown:
      Choose(form_.mnuPictureNext);
      return true;
    case Qt::Key_Home:
      SelectEntry(0);
      return true;
    case Qt::Key_End:
      SelectEntry(form_.LstRight.ListCount() - 1);
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // where + needs Shift
      Zoom(true);
      return true;
    case Qt::Key_Minus:
      Zoom(false);
      return true;
    case Qt::Key_0:
      Choose(form_.mnuEditZoomLevel(fullSize));
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Choose(form_.mnuPictureViewer);
      return true;
    case Qt::Key_Delete:
      Choose(form_.mnuPictureRemoveOne);
      return true;
    default:
      return false;
  }
}

void PictureGestures::Zoom(bool larger) {
  if (!form_.mnuEditZoom.IsReachable()) return;
  const Toolbar& bar = form_.Toolbar1;
  for (int position = 1; position <= bar.Count(); ++position) {
    const std::string& key = bar.Button(position).Key;
    if (key != (larger ? "zoominc" : "zoomdec")) continue;
    Fire([this, key, position] { form_.Toolbar1.OnButtonClick(key, position); });
    return;
  }
}

void PictureGestures::SelectEntry(int position) {
  if (position < 0) return;
  Fire([this, position] { form_.LstRight.UserSelect(position); });
}

void PictureGestures::Choose(MenuItem& item) {
  if (item.IsReachable()) Fire([&item] { item.UserClick(); });
}

void PictureGestures::Fire(const std::function<void()>& command) {
  const bool hadFocus = area_->hasFocus();
  const QPointer<QWidget> area = area_;
  view_.Serve(command);
  // A step gives the keyboard to the list.
  if (hadFocus && area && area->window()->isActiveWindow()) area->setFocus(Qt::OtherFocusReason);
}

void PictureGestures::OfferMenus(const QPoint& at) {
  QMenu* popup = NewPopup(view_);
  for (const MenuItem* title : {&form_.mnuPicture, &form_.mnuEdit}) {
    const auto* action = view_.findChild<QAction*>(ToQt(title->Name()));
    if (!action || !title->IsReachable()) continue;
    if (!popup->isEmpty()) popup->addSeparator();
    popup->addActions(action->menu()->actions());
  }
  if (popup->isEmpty()) {
    delete popup;
  } else {
    popup->popup(at);
  }
}

void OfferOnRightClick(FormView& view, RowList& list, std::vector<CommandButton*> buttons) {
  list.onOffer = [&view, buttons = std::move(buttons)](const QPoint& at) {
    QMenu* popup = NewPopup(view);
    for (CommandButton* button : buttons) {
      QAction* action = popup->addAction(ToQt(button->Caption.Get()));
      action->setEnabled(button->Enabled);
      QObject::connect(action, &QAction::triggered, popup,
                       [&view, button] { view.Serve([button] { button->UserClick(); }); });
    }
    popup->popup(at);
  };
}

}  // namespace lumidex
