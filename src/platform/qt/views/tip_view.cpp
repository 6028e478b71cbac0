#include "platform/qt/views/tip_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int sheetWidth = 480;
constexpr int sheetHeight = 250;
constexpr int margin = 24;
// The sheet's picture is bright under every theme, so what is written on it is dark under every theme.
constexpr QRgb ink = qRgb(0x1C, 0x24, 0x40);

void WriteInInk(QWidget* label, int morePoints, bool bold) {
  QPalette colours = label->palette();
  colours.setColor(QPalette::WindowText, QColor::fromRgb(ink));
  label->setPalette(colours);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() + morePoints);
  font.setBold(bold);
  label->setFont(font);
}

}  // namespace

TipView::TipView(FormViews& views, frmTipWindow& itsForm) : TypedView(views, itsForm) {
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Sheet(), 1);
  auto* below = new QHBoxLayout;
  below->addWidget(MakeCheckBox(*this, form.chkLoadTipsAtStartup, this));
  below->addStretch();
  below->addWidget(MakeButton(*this, form.cmdNextTip, this));
  below->addWidget(MakeButton(*this, form.cmdOK, this));
  rows->addLayout(below);
}

QWidget* TipView::Sheet() {
  QWidget* sheet = MakePictureBox(*this, form.Picture1, this);
  QWidget* inside = InsideOf(form.Picture1);
  sheet->setMinimumSize(sheetWidth, sheetHeight);
  // The picture and what is written on it share the one cell.
  auto* cell = new QGridLayout(inside);
  cell->setContentsMargins(0, 0, 0, 0);
  QWidget* picture = MakeImage(*this, form.Image1, inside);
  picture->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  cell->addWidget(picture, 0, 0);

  auto* written = new QWidget(inside);
  auto* lines = new QVBoxLayout(written);
  lines->setContentsMargins(margin, margin, margin, margin);
  lines->setSpacing(margin / 2);
  QLabel* title = MakeLabel(*this, form.Label1, written);
  WriteInInk(title, 5, true);
  lines->addWidget(title);
  QLabel* tip = MakeLabel(*this, form.lblTipText, nullptr);
  WriteInInk(tip, 1, false);
  tip->setWordWrap(true);
  tip->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // A tip may be of any length.
  auto* area = new QScrollArea(written);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(tip);
  for (QWidget* part : {static_cast<QWidget*>(area), area->viewport(), static_cast<QWidget*>(tip)}) {
    part->setAutoFillBackground(false);
  }
  lines->addWidget(area, 1);
  cell->addWidget(written, 0, 0);
  written->raise();
  return sheet;
}

}  // namespace lumidex
