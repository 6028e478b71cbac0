#pragma once
// The main window.

#include "forms/WPaper2.h"
#include "platform/qt/typed_view.h"
#include "platform/qt/views/placed_view.h"

namespace lumidex {

class MainView final : public TypedView<WPaper2Window, PlacedView> {
 public:
  MainView(FormViews& views, WPaper2Window& form);

 protected:
  bool IsEntrance() const override { return true; }
  float UsefulWidth(float width, float height) const override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // What assistive programs call the controls that have no caption.
  void NameControls();
  // Leaves the window unpainted until its picture is there, and not for long if none comes.
  void HoldPainting();
};

}  // namespace lumidex
