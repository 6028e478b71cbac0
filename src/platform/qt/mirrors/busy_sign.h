#pragma once
// The sign over a place where a picture is on its way for longer than a moment.

#include <QTimer>
#include <QWidget>

namespace lumidex {

class BusySign final : public QWidget {
 public:
  // In the middle of what can be seen of `place` inside `parent`; goes with being deleted.
  BusySign(QWidget* parent, const QRect& place);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QTimer turning_;
  int step_ = 0;
};

}  // namespace lumidex
