#pragma once
// The zoom viewer. Its lengths are device pixels, so that at 100 % one pixel of the picture is one of the
// screen's. The scroll bars stand right of the picture and below it, in room that the form does not know of.

#include "forms/frmZoomView.h"
#include "platform/qt/typed_view.h"
#include "platform/qt/views/placed_view.h"

class QScrollBar;

namespace lumidex {

class ZoomView final : public TypedView<frmZoomViewWindow, PlacedView> {
 public:
  ZoomView(FormViews& views, frmZoomViewWindow& form);
  const Units& GetUnits() const override;

 protected:
  float UsefulWidth(float width, float height) const override;
  int RoomAboveStatusBar() const override;

 private:
  void ShowBars();
  void ShowBar(QScrollBar& bar, int most, int value, int shownLength) const;

  mutable Units units_;
  QScrollBar *across_, *down_;
};

}  // namespace lumidex
