#pragma once
// One window on screen, showing one form. It exists from the form's first show on, follows the form's state,
// and tells the form what the user does. What stands in the window is the business of the derived views.

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <map>
#include <optional>

#include "controls/form.h"
#include "platform/qt/mirror.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/units.h"

namespace lumidex {

class FormViews;

// Who shows and hides a control's widget: `Follow`, or the function that it is given.
enum class Showing { AsControl, ByPush };

class FormView : public QWidget {
 public:
  FormView(FormViews& views, Form& form, Qt::WindowFlags flags = Qt::Dialog);
  ~FormView() override;

  Form& GetForm() const { return form_; }
  FormViews& Views() const { return views_; }
  // How many logical pixels the form's lengths are.
  virtual const Units& GetUnits() const;
  PushQueue& Pushes() { return pushes_; }

  // Gives the widget the control's name, enabled state, visibility and tool tip, keeps it up to date together
  // with what `push` does, and ties the keyboard focus of both. The widget goes with the control.
  Mirror* Follow(Control& control, QWidget* widget, std::function<void()> push = {},
                 Showing showing = Showing::AsControl);
  // Null when the control has none.
  QWidget* WidgetOf(const Control& control) const;
  // The widget that is the parent of what stands in a control, on one of its pages; the control's own widget
  // when nothing else was said.
  QWidget* InsideOf(const Control& container, int page = 0) const;
  void SetInsides(const Control& container, std::vector<QWidget*> pages);
  // The control whose keyboard focus `widget` has; null for none.
  Control* ControlOf(const QWidget* widget) const;

  // Runs what a user's gesture leads to. Errors end in the program's report; afterwards the widget shows what
  // the control holds, since the control may have refused.
  void Serve(const std::function<void()>& work, Mirror* mirror = nullptr);
  // The same for what the window system brings by itself: where a step waits for its work, it is kept until
  // that has come. `work` holds what it needs.
  void ServeInTime(std::function<void()> work);

  // The window becomes active by something that is no change of windows for the program.
  void IgnoreNextActivation() { ignoresActivation_ = true; }

  // Where the form's picture and its drawing begin, and places are counted from.
  virtual QPoint DrawingCorner() const { return {0, 0}; }

  // Brings window and widgets to the form's present state.
  void ShowState();
  void ShowStateSoon() { state_->MarkChanged(); }
  // Shows or hides the window after the form was shown or hidden.
  void FollowVisibility();
  // Deletes it later, once it has left the screen.
  void GiveBack();
  // Whether the window is better made anew than kept while it is hidden.
  virtual bool IsSeldomSeen() const { return false; }

 protected:
  // Pixels of the window's content to the form's outer size in twips.
  virtual bool SizeComesFromForm() const { return false; }
  // A control has come while the window stands.
  virtual void ControlCame(Control&) {}
  // The width that the form is told of a window of that size, in twips: less than it has when more would not
  // be of use, and the rest is a margin at the right.
  virtual float UsefulWidth(float width, float /*height*/) const { return width; }
  // Whether the user gets at the program through this window.
  virtual bool IsEntrance() const { return false; }

  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Shown {
    QPointer<QWidget> widget;
    std::vector<QWidget*> insides;  // children of the widget
  };
  void ControlWent(const Control& control);
  QSize WantedSize() const;
  QSizeF FormSize() const;
  QPointF FormPlace() const;
  void PaintBackground();
  void PushColours();
  void PushBackground();
  void PushSize();
  void ShowInState();
  // Before the window is shown: in the size that its content asks for, in the middle of the window that it
  // comes from, and within the screen.
  void Place();
  // `room` is what the screen has for the content, in logical pixels; more is scrolled.
  void FitContent(const QSize& room);
  void CarryOut(FormRequest request);
  void TellSize(QSize size);
  // Lets the form know the size that the window will have: it looks at it before the window manager has
  // answered.
  void AwaitMaximising();
  // Size and state belong together now: what came last has stayed for a while.
  void NoteSettled();
  // The window has the size and the place again that it had before it was maximised and hidden.
  void TakeNormalPlace();
  // A minimised window that its form has hidden stays in the task bar when the user could not call it back
  // from anywhere else.
  bool StaysInTaskBar() const;
  bool PressDefault(bool cancel);
  // Takes the window off the screen. When its manager has not come round to showing it, it would lose track
  // of it and leave an empty frame: then that is waited for.
  void Leave();
  void EndLeaving();

  FormViews& views_;
  Form& form_;
  PushQueue pushes_;
  Mirror* state_;
  std::map<const Control*, Shown> widgets_;
  Connection requests_, comings_, goings_;
  std::int32_t shownBackColor_ = -1;
  // What window and form agree on. Only what the program has changed since goes to the window: to answer its
  // manager with the numbers that just came from it would undo what it is in the midst of doing.
  WindowState shownState_ = WindowState::Normal;
  bool shownCovering_ = false;  // the whole screen
  QSizeF shownSize_;            // the form's, in twips
  QPointF shownPlace_;
  QTimer manager_;                      // runs while the window manager may have something to add
  QSize awaitedSize_;                   // unset when it is not about to maximise
  QSize normalSize_;                    // neither maximised nor minimised; unset before the first show
  std::optional<QPoint> normalCorner_;  // of the content; unset when the window never stood so
  Picture shownIcon_;
  ShownPicture background_;
  std::vector<DrawnBand> shownDrawing_;
  bool ignoresActivation_ = true;
  bool pushing_ = false;
  bool hasCome_ = false;  // to the screen, since it was shown
  bool leaves_ = false;
  bool isGivenBack_ = false;
  bool wasPlaced_ = false;
  bool wasMinimized_ = false;  // when it was hidden
  bool placesItself_ = false;  // the form or the view says where the window stands
};

// The classic virtual key code of a key press: 13 Enter, 37 to 40 the arrows; 0 when there is none.
int KeyCode(const QKeyEvent& event);

}  // namespace lumidex
