#include "platform/qt/views/properties_view.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/views/picture_parts.h"

namespace lumidex {
namespace {

constexpr QSize thumbnailSize(100, 100);
constexpr int sideWidth = 72;

}  // namespace

PropertiesView::PropertiesView(FormViews& views, frmFilePropertiesWindow& itsForm)
    : TypedView(views, itsForm) {
  auto* columns = new QHBoxLayout(this);
  columns->setSizeConstraint(QLayout::SetFixedSize);
  columns->addWidget(MakeSidePicture(*this, form.Image1, sideWidth, this));
  auto* right = new QVBoxLayout;
  QWidget* frame = MakeFrame(*this, form.Frame1, this);
  auto* inside = new QVBoxLayout(frame);
  inside->addLayout(Facts(frame));
  inside->addStretch();
  right->addWidget(frame, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(MakeButton(*this, form.cmdClose, this));
  right->addLayout(buttons);
  columns->addLayout(right, 1);
}

QLayout* PropertiesView::Facts(QWidget* frame) {
  auto* facts = new QFormLayout;
  Label* const names[] = {&form.lblFileName, &form.lblFileSize, &form.lblWidth,   &form.lblHeight,
                          &form.lblColors,   &form.lblFileDate, &form.lblFileTime};
  int index = 0;
  for (Label* name : names) {
    QLabel* value = MakeLabel(*this, form.lblFileInfo(index++), frame);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Room for the longest that is usual, so that the window does not jump while it is filled.
    value->setMinimumWidth(
        value->fontMetrics().horizontalAdvance(QStringLiteral("C:\\...\\WEDNESDAY\\SEPTEMBER.JPEG")));
    facts->addRow(MakeLabel(*this, *name, frame), value);
  }
  facts->addRow(MakeLabel(*this, form.lblThumbNail, frame),
                MakeFramedPicture(*this, form.imgThumbNail, thumbnailSize, frame));
  return facts;
}

}  // namespace lumidex
