#pragma once
// The main window.

#include <QTimer>

#include "forms/WPaper2.h"
#include "platform/qt/painted_memory.h"
#include "platform/qt/typed_view.h"
#include "platform/qt/views/placed_view.h"

namespace lumidex {

class ImageView;

class MainView final : public TypedView<WPaper2Window, PlacedView> {
 public:
  MainView(FormViews& views, WPaper2Window& form);

 protected:
  bool IsEntrance() const override { return true; }
  float UsefulWidth(float width, float height) const override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What assistive programs call the controls that have no caption.
  void NameControls();
  ImageView& Image() const;
  void PreparePainting();
  void EndHoldUnlessAwaiting();
  void EndHold();

  // While the window is left unpainted, for its picture.
  QTimer hold_{this};
  // Comes when everything that was waiting then is pushed.
  Mirror* settled_;
  PaintedMemory memory_;
  bool mayPrepare_ = true;  // once, and not when the window has been painted
};

}  // namespace lumidex
