#include "platform/qt/views/batch_views.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int stripWidth = 84;
constexpr int progressWidth = 440;

// The backdrop as a strip at the left edge, and the room beside it. The window is as large as that needs.
QVBoxLayout* BesideBackdrop(FormView& view, ImageBox& backdrop) {
  auto* columns = new QHBoxLayout(&view);
  columns->setSizeConstraint(QLayout::SetFixedSize);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(0);
  QWidget* strip = MakeImage(view, backdrop, &view);
  strip->setFixedWidth(stripWidth);
  strip->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  columns->addWidget(strip);
  auto* room = new QWidget(&view);
  columns->addWidget(room, 1);
  return new QVBoxLayout(room);
}

}  // namespace

ConvertTypeView::ConvertTypeView(FormViews& views, frmConvertFileTypeWindow& itsForm)
    : TypedView(views, itsForm) {
  QVBoxLayout* rows = BesideBackdrop(*this, form.Image1);
  rows->addWidget(MakeLabel(*this, form.lblInfo, this));
  for (const auto& option : form.optFileType) rows->addWidget(MakeOptionButton(*this, *option, this));
  rows->addSpacing(rows->spacing());
  rows->addWidget(MakeCheckBox(*this, form.chkAddConvertFolder, this));
  rows->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(MakeButton(*this, form.cmdConvert, this));
  buttons->addWidget(MakeButton(*this, form.cmdCancel, this));
  rows->addLayout(buttons);
}

ConvertProgressView::ConvertProgressView(FormViews& views, frmConvertFileNameWindow& itsForm)
    : TypedView(views, itsForm) {
  QVBoxLayout* rows = BesideBackdrop(*this, form.Image1);
  for (Label* label : {&form.lblInfo, &form.lblFileName, &form.lblConvertFileName}) {
    QLabel* line = MakeLabel(*this, *label, this);
    // Paths of any length leave the window as wide as it is.
    if (label != &form.lblInfo) {
      line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
      line->setMinimumWidth(progressWidth);
    }
    rows->addWidget(line);
  }
}

}  // namespace lumidex
