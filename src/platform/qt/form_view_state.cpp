// The two ways between a window's state and its form's: what the program sets goes to the window, what the
// user does to the frame goes to the form.

#include <QApplication>
#include <QMoveEvent>
#include <QResizeEvent>
#include <chrono>
#include <cmath>
#include <utility>

#include "platform/qt/conversions.h"
#include "platform/qt/form_view.h"
#include "platform/qt/form_views.h"

namespace lumidex {

namespace {

// How long a window manager may take between the two messages of one change, that of the state and that of
// the size.
constexpr std::chrono::milliseconds managerPatience{300};

}  // namespace

void FormView::ShowState() {
  if (windowTitle() != ToQt(form_.Caption.Get())) setWindowTitle(ToQt(form_.Caption.Get()));
  if (isEnabled() != form_.Enabled.Get()) setEnabled(form_.Enabled);
  // Before there is anything to point at, nobody misses it; to load it takes its milliseconds.
  if (form_.Pointer == MousePointer::Hourglass && hasCome_ && updatesEnabled()) {
    setCursor(Qt::WaitCursor);
  } else if (cursor().shape() != Qt::ArrowCursor) {
    unsetCursor();
  }
  if (!(shownIcon_ == form_.Icon.Get())) {
    shownIcon_ = form_.Icon.Get();
    setWindowIcon(ToIcon(shownIcon_));
  }
  PushColours();
  PushBackground();
  PushSize();
}

void FormView::PushBackground() {
  const Size size = form_.Picture.Get().GetSize();
  background_.Want(form_.Picture, {size.width, size.height}, DecodingPriority::Screen);
  if (shownDrawing_ == form_.Drawing()) return;
  shownDrawing_ = form_.Drawing();
  update();
}

void FormView::PushColours() {
  if (form_.BackColor == shownBackColor_) return;
  shownBackColor_ = form_.BackColor;
  QPalette colours = QApplication::palette(this);
  if (const QColor back = ToColour(shownBackColor_); back.isValid()) {
    colours.setColor(QPalette::Window, back);
    colours.setColor(QPalette::WindowText, ReadableOn(back));
  }
  setPalette(colours);
}

QSize FormView::WantedSize() const {
  const double factor = GetUnits().factor;
  return {static_cast<int>(std::lround((form_.Width - form_.FrameWidth()) / twipsPerPixel * factor)),
          static_cast<int>(std::lround((form_.Height - form_.FrameHeight()) / twipsPerPixel * factor))};
}

QSizeF FormView::FormSize() const {
  return {form_.Width.Get(), form_.Height.Get()};
}

QPointF FormView::FormPlace() const {
  return {form_.Left.Get(), form_.Top.Get()};
}

void FormView::ShowInState() {
  switch (form_.State.Get()) {
    case WindowState::Normal:
      showNormal();
      break;
    case WindowState::Minimized:
      showMinimized();
      break;
    case WindowState::Maximized:
      form_.CoversScreen() ? showFullScreen() : showMaximized();
      break;
  }
}

void FormView::PushSize() {
  pushing_ = true;
  const WindowState state = form_.State;
  const bool covers = form_.CoversScreen();
  if (isVisible() && (state != shownState_ || covers != shownCovering_)) ShowInState();
  shownState_ = state;
  shownCovering_ = covers;
  if (SizeComesFromForm() && state == WindowState::Normal && FormSize() != shownSize_) {
    shownSize_ = FormSize();
    if (const QSize wanted = WantedSize(); wanted.isValid() && wanted != size()) {
      form_.Border == BorderStyle::Sizable ? resize(wanted) : setFixedSize(wanted);
    }
  }
  if (state == WindowState::Normal && FormPlace() != shownPlace_) {
    shownPlace_ = FormPlace();
    placesItself_ = wasPlaced_ = true;
    move(GetUnits().Pixels(form_.Left), GetUnits().Pixels(form_.Top));
  }
  pushing_ = false;
}

void FormView::Leave() {
  if (hasCome_) return hide();
  leaves_ = true;
  QTimer::singleShot(managerPatience, this, [this] { EndLeaving(); });
}

void FormView::EndLeaving() {
  if (!std::exchange(leaves_, false)) return;
  hide();
  if (isGivenBack_) deleteLater();
}

void FormView::GiveBack() {
  isGivenBack_ = true;
  if (!leaves_) deleteLater();
}

bool FormView::StaysInTaskBar() const {
  return IsEntrance() && form_.IsLoaded() && form_.State == WindowState::Minimized &&
         !form_.GetPlatform().tray.IsAvailable();
}

void FormView::TellSize(QSize size) {
  if (leaves_) return;
  const double factor = GetUnits().factor;
  const auto outer = [factor](int pixels, float frame) {
    return static_cast<float>(pixels / factor * twipsPerPixel) + frame;
  };
  const WindowState state = isMinimized()                     ? WindowState::Minimized
                            : isMaximized() || isFullScreen() ? WindowState::Maximized
                                                              : WindowState::Normal;
  if (state == WindowState::Maximized && awaitedSize_.isValid()) size = awaitedSize_;
  float width = outer(size.width(), form_.FrameWidth());
  float height = outer(size.height(), form_.FrameHeight());
  // The size that the form itself has set comes back rounded to whole pixels: that is no new size.
  if (state == WindowState::Minimized || size == WantedSize()) {
    width = form_.Width;
    height = form_.Height;
  }
  width = UsefulWidth(width, height);
  shownState_ = state;
  shownSize_ = {width, height};
  // Called back from the task bar: the form, which counts as hidden, is shown again.
  const bool isBack = !form_.Visible() && isVisible() && state != WindowState::Minimized;
  if (isBack) ignoresActivation_ = !isActiveWindow();
  ServeInTime([=, this] {
    form_.UserResize(width, height, state);
    if (isBack) form_.Show();
  });
}

void FormView::AwaitMaximising() {
  if (form_.CoversScreen()) return resize(screen()->size());
  awaitedSize_ = screen()->availableSize();
  manager_.start(managerPatience);
}

void FormView::NoteSettled() {
  if (!isVisible()) return;
  if (std::exchange(awaitedSize_, QSize()).isValid()) TellSize(size());
  if (isMinimized() || isMaximized() || isFullScreen()) return;
  normalSize_ = size();
  normalCorner_ = geometry().topLeft();
}

void FormView::TakeNormalPlace() {
  if (!normalSize_.isValid() || form_.CoversScreen()) return;
  resize(normalSize_);
  if (normalCorner_) setGeometry({*normalCorner_, normalSize_});
}

void FormView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->spontaneous()) awaitedSize_ = {};
  manager_.start(managerPatience);
  // Once it is hidden the window manager takes back what it had made of the window, which is nothing to the
  // form.
  // Where two sizes come quickly one after the other, the library takes the later one over at once, tells of
  // the earlier one and then of no other.
  if (form_.IsLoaded() && (form_.Visible() || isVisible())) TellSize(size());
}

void FormView::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  manager_.start(managerPatience);
  if (pushing_ || isMinimized() || isMaximized() || isFullScreen() || !isVisible()) return;
  form_.Left.SetQuietly(GetUnits().Twips(x()));
  form_.Top.SetQuietly(GetUnits().Twips(y()));
  shownPlace_ = FormPlace();
}

void FormView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || pushing_) return;
  // The size that belongs to a new state comes in an event of its own, before or after this one: the form is
  // to lay itself out once.
  QTimer::singleShot(0, this, [this] {
    if (isVisible()) TellSize(size());
  });
}

}  // namespace lumidex
