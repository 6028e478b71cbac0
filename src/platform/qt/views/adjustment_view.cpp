#include "platform/qt/views/adjustment_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/views/picture_parts.h"

namespace lumidex {
namespace {

constexpr QSize previewSize(280, 210);
constexpr int sideWidth = 72;
constexpr int captionSpacing = 3, groupSpacing = 10;

}  // namespace

AdjustmentView::AdjustmentView(FormViews& views, frmAdjustColorBalanceWindow& itsForm)
    : TypedView(views, itsForm) {
  Build({{itsForm.lblRed, itsForm.HScroll3(0), itsForm.lblRedBalance},
         {itsForm.lblGreen, itsForm.HScroll3(1), itsForm.lblGreenBalance},
         {itsForm.lblBlue, itsForm.HScroll3(2), itsForm.lblBlueBalance}});
}

AdjustmentView::AdjustmentView(FormViews& views, frmAdjustContrastandBrightnessWindow& itsForm)
    : TypedView(views, itsForm) {
  Build({{itsForm.lblBrightnessName, itsForm.HScroll1, itsForm.lblBrightness},
         {itsForm.lblContrastName, itsForm.HScroll2, itsForm.lblContrast}});
}

void AdjustmentView::Build(const std::vector<Row>& rows) {
  auto* columns = new QHBoxLayout(this);
  columns->setSizeConstraint(QLayout::SetFixedSize);
  columns->addWidget(MakeSidePicture(*this, form.Image1, sideWidth, this));
  auto* right = new QVBoxLayout;
  QWidget* frame = MakeFrame(*this, form.Frame1, this);
  auto* inside = new QVBoxLayout(frame);
  inside->addLayout(Previews(frame));
  inside->addSpacing(groupSpacing);
  inside->addLayout(Sliders(rows, frame));
  right->addWidget(frame);
  right->addLayout(Buttons());
  columns->addLayout(right);
}

QLayout* AdjustmentView::Previews(QWidget* frame) {
  auto* row = new QHBoxLayout;
  row->setSpacing(groupSpacing);
  const auto add = [&](Label& name, ImageBox& picture) {
    auto* column = new QVBoxLayout;
    column->setSpacing(captionSpacing);
    column->addWidget(MakeLabel(*this, name, frame));
    column->addWidget(MakeFramedPicture(*this, picture, previewSize, frame));
    row->addLayout(column);
  };
  add(form.lblOriginal, form.imgOriginal);
  add(form.lblModified, form.imgModified);
  return row;
}

QLayout* AdjustmentView::Sliders(const std::vector<Row>& rows, QWidget* frame) {
  auto* grid = new QGridLayout;
  int line = 0;
  for (const Row& row : rows) {
    QWidget* slider = MakeSlider(*this, row.slider, frame);
    QLabel* value = MakeLabel(*this, row.value, frame);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("-100")));
    grid->addWidget(MakeLabel(*this, row.name, frame, slider), line, 0);
    grid->addWidget(slider, line, 1);
    grid->addWidget(value, line, 2);
    ++line;
  }
  grid->setColumnStretch(1, 1);
  return grid;
}

QLayout* AdjustmentView::Buttons() {
  auto* row = new QHBoxLayout;
  row->addWidget(MakeButton(*this, form.Command1, this));
  row->addStretch();
  row->addWidget(MakeButton(*this, form.Command2, this));
  return row;
}

}  // namespace lumidex
