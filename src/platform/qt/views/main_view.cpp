#include "platform/qt/views/main_view.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <algorithm>

#include "platform/posix/file_address.h"
#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"
#include "platform/qt/mirrors/image_view.h"
#include "platform/qt/mirrors/row_list.h"
#include "platform/qt/views/picture_gestures.h"

namespace lumidex {
namespace {

constexpr int longestHoldMilliseconds = 50;

// Byte for byte: not every file name is text.
std::vector<std::string> DroppedPaths(const QMimeData& data) {
  return PathsOfAddresses(data.data(QStringLiteral("text/uri-list")).toStdString());
}

// Icons and the letters of captions are kept once they are made.
void LoadIcons(const QWidget& window) {
  for (const QToolButton* button : window.findChildren<QToolButton*>()) {
    if (button->isVisible())
      button->icon().pixmap(button->iconSize(), window.devicePixelRatioF(),
                            button->isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }
}

void LoadLetters(const QWidget& window) {
  QString letters;
  const auto add = [&](const QString& text) {
    for (const QChar letter : text) {
      if (!letters.contains(letter)) letters += letter;
    }
  };
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible()) add(label->text());
  }
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) add(button->text());
  }
  for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* title : bar->actions()) add(title->text());
  }
  QImage place(1, 1, QImage::Format_RGB32);
  place.setDevicePixelRatio(window.devicePixelRatioF());
  QPainter painter(&place);
  painter.setFont(window.font());
  painter.drawText(0, 0, letters);
}

}  // namespace

MainView::MainView(FormViews& views, WPaper2Window& itsForm)
    : TypedView(views, itsForm, Qt::Window, Labels::AroundText),
      settled_(new Mirror(Pushes(), this, [this] { EndHoldUnlessAwaiting(); })) {
  NameControls();
  qobject_cast<QLabel*>(WidgetOf(form.txtPrgTitle))->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  new PictureGestures(*this, form);
  OfferOnRightClick(*this, static_cast<RowList&>(*WidgetOf(form.LstLeft)),
                    {&form.cmdRightOne, &form.cmdRightAll});
  OfferOnRightClick(*this, static_cast<RowList&>(*WidgetOf(form.LstRight)),
                    {&form.cmdLeftOne, &form.cmdLeftAll, &form.cmdUp, &form.cmdDown});
  setAcceptDrops(true);
  Image().AskOnceExposed();
  // By then the window has its size, often before it is on the screen.
  Image().onAsked = [this] { PreparePainting(); };
  Image().onShown = [this] {
    PreparePainting();
    EndHoldUnlessAwaiting();
  };
  hold_.setObjectName(QStringLiteral("hold"));
  hold_.setSingleShot(true);
  hold_.setInterval(longestHoldMilliseconds);
  connect(&hold_, &QTimer::timeout, this, [this] { EndHold(); });
}

ImageView& MainView::Image() const {
  return static_cast<ImageView&>(*WidgetOf(form.Image1));
}

void MainView::resizeEvent(QResizeEvent* event) {
  memory_.Finish();
  PlacedView::resizeEvent(event);
}

void MainView::showEvent(QShowEvent* event) {
  PlacedView::showEvent(event);
  windowHandle()->installEventFilter(this);
}

// Painting all of a large window takes longer than the last step of a picture that was decoded meanwhile, and
// is in vain while what it shall show has still to be set or pushed.
bool MainView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == windowHandle() && event->type() == QEvent::Expose) {
    watched->removeEventFilter(this);
    setUpdatesEnabled(false);
    hold_.start();
    settled_->MarkChanged();
  }
  return PlacedView::eventFilter(watched, event);
}

// What painting would have to do besides, of which none depends on the picture.
void MainView::PreparePainting() {
  if (!std::exchange(mayPrepare_, false)) return;
  memory_.Begin(*this);
  PaintGuarded(*this, [this] {
    LoadIcons(*this);
    LoadLetters(*this);
  });
}

void MainView::EndHoldUnlessAwaiting() {
  if (!hold_.isActive()) return;
  const bool hasPicture = form.Image1.Visible && !form.Image1.Picture.Get().IsEmpty();
  if (hasPicture && Image().IsSoonThere(form.Image1.Picture)) return;
  if (hasPicture || !YieldInRoutine::IsUnderWay()) return EndHold();
  // The routine that yields here may be the one that is going to show a picture.
  QTimer::singleShot(1, this, [this] { EndHoldUnlessAwaiting(); });
}

void MainView::EndHold() {
  hold_.stop();
  if (updatesEnabled()) return;
  PreparePainting();
  memory_.Finish();
  setUpdatesEnabled(true);
  // What was to be painted before is not asked for anew.
  QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
  // Behind the painting: the pointer has waited for it.
  QTimer::singleShot(0, this, [this] { ShowStateSoon(); });
}

void MainView::NameControls() {
  WidgetOf(form.LstLeft)->setAccessibleName(ToQt(form.lblSelectionList.Caption.Get()));
  WidgetOf(form.LstRight)->setAccessibleName(ToQt(form.lblDisplayList.Caption.Get()));
  InsideOf(form.Picture1)->setAccessibleName(QStringLiteral("Picture area"));
  // The status bar tells the name and the size of the picture that is shown.
  QWidget* image = WidgetOf(form.Image1);
  new Mirror(Pushes(), form.StatusBar1, image, [this, image] {
    const std::string& size = form.StatusBar1.Panel(3).Text;
    if (!size.empty()) image->setAccessibleName(ToQt(form.StatusBar1.Panel(2).Text + ", " + size));
  });
}

void MainView::dragEnterEvent(QDragEnterEvent* event) {
  // As with the mouse and the keyboard, a modal window keeps the user from this one.
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal && modal != this) return;
  if (!DroppedPaths(*event->mimeData()).empty()) event->acceptProposedAction();
}

void MainView::dropEvent(QDropEvent* event) {
  std::vector<std::string> paths = DroppedPaths(*event->mimeData());
  event->acceptProposedAction();
  // The other program waits for the end of this.
  QTimer::singleShot(
      0, this, [this, paths = std::move(paths)] { ServeInTime([this, paths] { form.UserDrop(paths); }); });
}

float MainView::UsefulWidth(float width, float height) const {
  return std::min(width, form.WidestFor(height));
}

}  // namespace lumidex
