#include "platform/qt/form_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "base/run_time_error.h"
#include "controls/buttons.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/content_area.h"
#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"
#include "platform/qt/guarded.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {

FormView::FormView(FormViews& views, Form& form, Qt::WindowFlags flags)
    : QWidget(nullptr, flags),
      views_(views),
      form_(form),
      pushes_(form.GetPlatform().events),
      background_(form.GetPlatform(), [this] { update(); }) {
  setObjectName(ToQt(form.Name()));
  manager_.setSingleShot(true);
  connect(&manager_, &QTimer::timeout, this, [this] { NoteSettled(); });
  SetAccessibleRole(*this, flags.testFlag(Qt::Dialog) ? QAccessible::Dialog : QAccessible::Window);
  if (form.Border == BorderStyle::None) setWindowFlag(Qt::FramelessWindowHint);
  new PointerWatch(*this, form, this, this);
  requests_ = form.Requested.Connect([this](FormRequest request) { CarryOut(request); });
  comings_ = form.ControlAdded.Connect([this](Control& control) { ControlCame(control); });
  goings_ = form.ControlRemoved.Connect([this](Control& control) { ControlWent(control); });
  state_ = new Mirror(pushes_, form, this, [this] { ShowState(); });
}

FormView::~FormView() = default;

const Units& FormView::GetUnits() const {
  return views_.GetUnits();
}

void FormView::ControlWent(const Control& control) {
  const QPointer<QWidget> widget = WidgetOf(control);
  widgets_.erase(&control);
  if (!widget) return;
  widget->hide();
  // Later, since this may be the answer to a gesture in that very widget.
  if (widget) widget->deleteLater();
}

Mirror* FormView::Follow(Control& control, QWidget* widget, std::function<void()> push, Showing showing) {
  widget->setObjectName(ToQt(control.Name()));
  widgets_[&control].widget = widget;
  widget->installEventFilter(this);
  return new Mirror(pushes_, control, widget,
                    [&control, widget, showing, push = std::move(push), order = 0]() mutable {
                      if (push) push();
                      widget->setEnabled(control.Enabled);
                      // Compared first: showing a child anew costs a layout of its whole window.
                      if (showing == Showing::AsControl && widget->isHidden() == control.Visible.Get()) {
                        widget->setVisible(control.Visible);
                      }
                      if (!control.ToolTipText.Get().empty())
                        widget->setToolTip(ToQt(control.ToolTipText.Get()));
                      if (order != control.Order) {
                        order = control.Order;
                        widget->raise();
                      }
                    });
}

QWidget* FormView::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second.widget.data();
}

QWidget* FormView::InsideOf(const Control& container, int page) const {
  const auto found = widgets_.find(&container);
  if (found == widgets_.end() || !found->second.widget) return nullptr;
  const Shown& shown = found->second;
  if (page >= 0 && page < static_cast<int>(shown.insides.size())) {
    return shown.insides[static_cast<std::size_t>(page)];
  }
  return shown.widget;
}

void FormView::SetInsides(const Control& container, std::vector<QWidget*> pages) {
  widgets_[&container].insides = std::move(pages);
}

Control* FormView::ControlOf(const QWidget* widget) const {
  for (Control* control : form_.Controls()) {
    const QWidget* own = WidgetOf(*control);
    if (own && (own == widget || own->isAncestorOf(widget))) return control;
  }
  return nullptr;
}

void FormView::Serve(const std::function<void()>& work, Mirror* mirror) {
  const QPointer<FormView> self = this;
  const QPointer<Mirror> shown = mirror;
  EventQueue& events = form_.GetPlatform().events;
  // Nothing of the user's comes while a step waits for its work; what a tool might press then is refused.
  if (!events.IsAside()) events.Guard(work);
  if (!self) return;
  if (shown) shown->MarkChanged();
  pushes_.Flush();
}

void FormView::ServeInTime(std::function<void()> work) {
  EventQueue& events = form_.GetPlatform().events;
  if (!events.IsAside()) return Serve(work);
  events.Post([self = QPointer(this), work = std::move(work)] {
    if (self) self->Serve(work);
  });
}

void FormView::CarryOut(FormRequest request) {
  switch (request) {
    case FormRequest::Repaint:
      pushes_.Flush();
      if (windowHandle() && windowHandle()->isExposed()) repaint();
      break;
    case FormRequest::BringToFront:
      raise();
      activateWindow();
      break;
    case FormRequest::Focus: {
      Control* control = form_.ActiveControl();
      QWidget* widget = control ? WidgetOf(*control) : nullptr;
      if (!widget) break;
      // The widget may still be waiting for its enabled state, without which it takes no focus.
      pushes_.Flush();
      if (!widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
      break;
    }
  }
}

void FormView::FollowVisibility() {
  if (form_.Visible()) leaves_ = false;
  if (form_.Visible() == isVisible()) return;
  if (!form_.Visible()) {
    if (StaysInTaskBar()) return;
    wasMinimized_ = form_.State == WindowState::Minimized;
    return Leave();
  }
  // A minimized window that comes back in another state is mapped and changed by the library in an order in
  // which window managers lose that state, and what they tell late of the old state would count as news: a
  // new window comes up as it is to be.
  if (std::exchange(wasMinimized_, false) && windowHandle()) destroy();
  // What a window has when it is maximised before it stands is what its manager restores it to.
  setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
  TakeNormalPlace();
  ignoresActivation_ = true;
  setWindowModality(form_.IsModal() ? Qt::ApplicationModal : Qt::NonModal);
  pushes_.Flush();
  ShowState();
  Place();
  if (views_.IsTopmost(form_)) {
    winId();
    windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
  }
  if (!normalSize_.isValid()) normalSize_ = size();
  if (form_.State == WindowState::Maximized) AwaitMaximising();
  hasCome_ = false;
  ShowInState();
  windowHandle()->installEventFilter(this);
  if (awaitedSize_.isValid()) TellSize(awaitedSize_);
}

void FormView::Place() {
  if (!std::exchange(wasPlaced_, true)) placesItself_ = testAttribute(Qt::WA_Moved);
  QWidget* before = views_.DialogParent();
  if (before == this) before = nullptr;
  QScreen* on = before ? before->screen() : screen();
  const QSize room = on->availableSize() - frameAllowance;
  FitContent(room);
  // Told to the form by the resize event that comes with the showing.
  if (!form_.CoversScreen()) resize(size().boundedTo(room));
  if (!before || windowType() != Qt::Dialog) return;
  QWindow* parent = before->window()->windowHandle();
  setScreen(on);
  winId();
  windowHandle()->setTransientParent(parent);
  if (placesItself_ || !parent) return;
  // Its own frame is known only when it stands; it will be like that one's.
  const QMargins frame = parent->frameMargins();
  const QSize outer = size().grownBy(frame);
  const QRect all = on->availableGeometry();
  QRect place(QPoint(0, 0), outer);
  place.moveCenter(parent->frameGeometry().center());
  place.moveRight(std::min(place.right(), all.right()));
  place.moveBottom(std::min(place.bottom(), all.bottom()));
  place.moveLeft(std::max(place.left(), all.left()));
  place.moveTop(std::max(place.top(), all.top()));
  // Told of the content: where the frame begins is not known to everybody yet.
  setGeometry(QRect(place.topLeft() + QPoint(frame.left(), frame.top()), size()));
}

void FormView::FitContent(const QSize& room) {
  if (SizeComesFromForm() || !layout()) return;
  const QSize least = layout()->totalMinimumSize();
  if (least.width() > room.width() || least.height() > room.height()) {
    auto* content = new QWidget;
    content->setLayout(layout());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(new ContentArea(content, this));
  }
  if (testAttribute(Qt::WA_Resized)) return;
  QSize wanted = sizeHint();
  if (layout()->hasHeightForWidth()) wanted.setHeight(layout()->totalHeightForWidth(wanted.width()));
  resize(wanted);
}

bool FormView::event(QEvent* event) {
  if (event->type() == QEvent::DeferredDelete && views_.Keeps(*this)) return true;
  if (event->type() == QEvent::WindowActivate) {
    const FormViews::Keeping keeping(views_);
    views_.NoteActive(*this);
    // Show has told the form of its first activation itself.
    if (!std::exchange(ignoresActivation_, false)) {
      ServeInTime([this] { form_.UserActivate(); });
    }
  }
  return QWidget::event(event);
}

void FormView::closeEvent(QCloseEvent* event) {
  // The form decides; when it goes, it hides this window.
  event->ignore();
  Serve([this] { form_.UserClose(); });
}

void FormView::keyPressEvent(QKeyEvent* event) {
  const int code = KeyCode(*event);
  const bool isEnter = code == 13;
  if ((isEnter || code == 27) && event->modifiers().testFlags(Qt::NoModifier) && PressDefault(!isEnter))
    return;
  if (code && form_.OnKeyDown) {
    Serve([this, code] { form_.OnKeyDown(code); });
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool FormView::PressDefault(bool cancel) {
  if (!cancel) {
    // Enter on a button presses that button.
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget()); focused && focused->hasFocus()) {
      focused->click();
      return true;
    }
  }
  for (Control* control : form_.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (!button || !button->Enabled || !button->Visible) continue;
    if (!(cancel ? button->Cancel : button->Default)) continue;
    Serve([button] { button->UserClick(); });
    return true;
  }
  return false;
}

void FormView::paintEvent(QPaintEvent*) {
  PaintGuarded(*this, [this] { PaintBackground(); });
}

void FormView::PaintBackground() {
  if (background_.Painted().IsEmpty() && form_.Drawing().empty()) return;
  QPainter painter(this);
  const QPoint corner = DrawingCorner();
  const Size size = background_.Painted().GetSize();
  background_.Paint(painter, {corner, QSize(size.width, size.height)}, Qt::NoBrush);
  for (const DrawnBand& band : form_.Drawing()) {
    const int top = GetUnits().Pixels(double{twipsPerPixel} * band.top);
    const int bottom = GetUnits().Pixels(double{twipsPerPixel} * band.bottom);
    painter.fillRect(corner.x(), corner.y() + top, width() - corner.x(), bottom - top, ToColour(band.colour));
  }
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose && watched == windowHandle()) {
    if (!std::exchange(hasCome_, true)) ShowStateSoon();
    if (leaves_) QTimer::singleShot(0, this, [this] { EndLeaving(); });
    return false;
  }
  if (event->type() != QEvent::FocusIn && event->type() != QEvent::KeyPress) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  Control* control = widget ? ControlOf(widget) : nullptr;
  if (!control) return false;
  if (event->type() == QEvent::FocusIn) {
    const FormViews::Keeping keeping(views_);
    if (form_.ActiveControl() != control) {
      ServeInTime([this, control] {
        if (WidgetOf(*control)) form_.UserFocus(control);
      });
    }
    return false;
  }
  const int code = KeyCode(*static_cast<QKeyEvent*>(event));
  if (code && (control->OnKeyDown || control->OnKeyPress)) {
    Serve([control, code] { control->UserKey(code); });
  }
  return false;
}

int KeyCode(const QKeyEvent& event) {
  struct Pair {
    int key;
    int code;
  };
  static constexpr Pair table[] = {{Qt::Key_Return, 13},   {Qt::Key_Enter, 13},  {Qt::Key_Escape, 27},
                                   {Qt::Key_Space, 32},    {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34},
                                   {Qt::Key_End, 35},      {Qt::Key_Home, 36},   {Qt::Key_Left, 37},
                                   {Qt::Key_Up, 38},       {Qt::Key_Right, 39},  {Qt::Key_Down, 40},
                                   {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46}, {Qt::Key_Tab, 9},
                                   {Qt::Key_Backspace, 8}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109}};
  const int key = event.key();
  for (const Pair& pair : table) {
    if (pair.key == key) return pair.code;
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  return 0;
}

}  // namespace lumidex
