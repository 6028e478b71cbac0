#pragma once
// The hand on the main window: wheel, keys and right clicks that fire the commands which the menus, the
// toolbar and the buttons have.

#include <QObject>

#include "forms/WPaper2.h"

class QGestureEvent;
class QKeyEvent;
class QNativeGestureEvent;
class QWheelEvent;

namespace lumidex {

class FormView;
class RowList;

// On the picture: the wheel goes to the next and the previous picture, with Ctrl it zooms, as two fingers do
// that move apart or together; a click gives it the keyboard. With that the arrow and page keys step, Home
// and End go to the ends of the Display list, + and - zoom, 0 is 100 %, Enter opens the viewer as a double
// click does, Delete takes the picture out of the list. A right click offers what the Picture and the Edit
// menu offer.
class PictureGestures final : public QObject {
 public:
  PictureGestures(FormView& view, WPaper2Window& form);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Turn(const QWheelEvent& event);
  bool Pinch(const QNativeGestureEvent& event);
  bool Pinch(const QGestureEvent& event);
  void BeginPinch() { pinched_ = 1; }
  // The fingers are so many times as far apart as they were at the last call.
  void Pinch(double factor);
  bool Press(const QKeyEvent& event);
  void Zoom(bool larger);
  void SelectEntry(int position);
  void OfferMenus(const QPoint& at);
  // As a user's gesture, after which the keyboard is where it was.
  void Fire(const std::function<void()>& command);
  void Choose(MenuItem& item);

  FormView& view_;
  WPaper2Window& form_;
  QWidget* area_;
  QWidget* image_;
  int turned_ = 0;      // of the wheel, in eighths of a degree, since the last step
  double pinched_ = 1;  // since the last step, or since the fingers came down
};

// A right click in a list selects the row, and offers these buttons' commands.
void OfferOnRightClick(FormView& view, RowList& list, std::vector<CommandButton*> buttons);

}  // namespace lumidex
