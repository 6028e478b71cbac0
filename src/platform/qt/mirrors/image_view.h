#pragma once
// The widget of an image box: shows a picture in its box, and the one before until that is there.

#include <QPointer>
#include <QTimer>
#include <optional>

#include "platform/qt/guarded.h"
#include "platform/qt/mirror.h"
#include "platform/qt/mirrors/busy_sign.h"
#include "platform/qt/mirrors/shown_picture.h"

namespace lumidex {

class ImageView final : public PaintedWidget {
 public:
  ImageView(Platform& platform, PushQueue& pushes, QWidget* parent);
  ~ImageView() override;

  // Scaled to the box where it is stretched, else in its own size from the upper left corner.
  void Show(const Picture& picture, bool stretch);
  // The box. A picture that is on its way takes its place when it is there; until then the one before keeps
  // its own.
  void Place(const QRect& place);
  // The same in pixels of the screen, counted from the parent's corner: a picture of that very size has one
  // of its pixels on each. Transparent places show a checkerboard.
  void PlaceOnDevice(const QRect& pixels);
  // A drawn picture of the program's own: it fills the widget and keeps its transparent places.
  void ShowArtwork(const std::string& name);
  // Asks for no picture before the window is on the screen or has the size that its manager gives it: a
  // picture made for another one would be made twice.
  void AskOnceExposed() { asksOnceExposed_ = true; }
  // What shows through a picture's transparent places; white by default.
  void SetGround(const QBrush& ground) { ground_ = ground; }
  // True while the picture that it was given last is on its way.
  bool IsWaiting() const { return ask_->IsWaiting() || shown_.IsWaiting(); }
  bool HasPicture() const { return !shown_.Painted().IsEmpty(); }
  // True while this picture is not painted yet and only has to be brought to its size, or is a small one.
  bool IsSoonThere(const Picture& picture) const;
  QSize sizeHint() const override;

  // What was wanted last is painted from now on, or was painted already when it was asked for.
  std::function<void()> onShown;
  // What was wanted last is being made on another thread.
  std::function<void()> onAsked;

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Paint() override;

 private:
  void AskSoon() { ask_->MarkChanged(); }
  void Ask();
  bool AwaitsExposure();
  void TakeWhatCame();
  QRect WantedPlace() const;
  void TakePlace();
  // Whether nothing of the parent is seen through it.
  bool FillsWidget() const;
  QRect BoxIn(const QSize& size, const Picture& picture) const;
  void PaintOnDevice(QPainter& painter);
  void ShowBusySign();

  Picture picture_;
  bool stretch_ = false;
  bool asksOnceExposed_ = false;
  QSize windowBefore_;  // its size when it was shown
  std::optional<QRect> place_;
  // Pixels of the screen: the box that is wanted, and that of what is painted; none where the widget is it.
  std::optional<QRect> wantedPixels_, pixels_;
  qreal ratio_ = 0;  // of device pixels, as it was asked for
  ShownPicture shown_;
  // Picture and place change one after the other: what is wanted is asked for once they both have.
  Mirror* ask_;
  QImage artwork_;
  QBrush ground_{Qt::white};
  QTimer untilBusy_{this};
  QPointer<BusySign> busy_;
};

}  // namespace lumidex
