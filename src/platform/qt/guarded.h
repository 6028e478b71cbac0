#pragma once
// Drawing runs outside of the program's events, so that its errors are brought to them.

#include <QWidget>
#include <functional>

#include "ports/event_queue.h"

namespace lumidex {

// Runs the work; what it raises is posted as an event and so comes to the program's report.
void RunGuarded(EventQueue& events, const std::function<void()>& work);

// The same for what draws a widget that stands in the window of a form, and for what prepares the drawing.
void PaintGuarded(QWidget& widget, const std::function<void()>& paint);

// A widget that draws itself.
class PaintedWidget : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  virtual void Paint() = 0;
  void paintEvent(QPaintEvent*) final {
    PaintGuarded(*this, [this] { Paint(); });
  }
};

}  // namespace lumidex
