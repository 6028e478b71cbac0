#pragma once
// Tells a form or a control what the mouse does on its widget.

#include <QObject>

#include "controls/pointed.h"

class QMouseEvent;
class QWidget;

namespace lumidex {

class FormView;

class PointerWatch final : public QObject {
 public:
  // Ends with `parent`: the mirror of the control, or the form's view. A place counts from the corner of the
  // widget, in a view from that of its inside. What nobody listens to goes on to what lies below.
  PointerWatch(FormView& view, Pointed& pointed, QWidget* widget, QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  MouseState StateOf(const QMouseEvent& event, int button) const;
  void Release(const QMouseEvent& event);

  FormView& view_;
  Pointed& pointed_;
  QWidget* widget_;
  bool isClick_ = false;  // the button went down here, and not for a double click
};

}  // namespace lumidex
