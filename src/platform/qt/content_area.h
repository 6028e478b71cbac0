#pragma once
// A part of a window that is as large as what stands in it where the screen has the room, and scrolls it
// where not.

#include <QScrollArea>

namespace lumidex {

class ContentArea final : public QScrollArea {
 public:
  ContentArea(QWidget* content, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace lumidex
