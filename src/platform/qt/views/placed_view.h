#pragma once
// A window with every control at its own position: toolbar above, status bar below, menus where the form has
// some. Controls that come and go at run time come and go here.

#include "platform/qt/form_view.h"

namespace lumidex {

class PlacedView : public FormView {
 public:
  enum class Labels {
    AsPlaced,
    // A label may be wider and higher than designed: there is nothing beside it that a longer translation or
    // another font would cover.
    AroundText,
    // What is too long for a label is cut off; its tool tip has the whole.
    CutOff
  };

  PlacedView(FormViews& views, Form& form, Qt::WindowFlags flags = Qt::Window,
             Labels labels = Labels::AsPlaced);

 protected:
  bool SizeComesFromForm() const override { return true; }
  // Room that a view keeps above the status bar: the program takes it for a part of that.
  virtual int RoomAboveStatusBar() const { return 0; }
  QPoint DrawingCorner() const override { return client_->pos(); }
  void ControlCame(Control& control) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Add(Control& control);
  QWidget* Make(Control& control, QWidget* parent);
  void Place(Control& control, QWidget* widget);
  void PlaceBars();
  // The bar is as high as its widget needs, which the program reads from the control.
  void PlaceBar(Control& bar, const QRect& shown, int roomAbove = 0);

  Labels labels_;
  QWidget* client_;  // below the menu bar: positions count from its corner
  Control* toolbar_ = nullptr;
  Control* statusBar_ = nullptr;
};

}  // namespace lumidex
