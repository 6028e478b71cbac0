#include "platform/qt/views/about_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int margin = 24;
constexpr int gap = 6;
constexpr int textWidth = 380;
constexpr QSize programSize(64, 64);
constexpr QSize vendorSize(141, 25);

void Enlarge(QLabel* label, int morePoints) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() + morePoints);
  font.setBold(true);
  label->setFont(font);
}

}  // namespace

AboutView::AboutView(FormViews& views, frmAboutWindow& itsForm) : TypedView(views, itsForm) {
  // The backdrop lies behind everything, in the same one cell.
  auto* cell = new QGridLayout(this);
  cell->setContentsMargins(0, 0, 0, 0);
  QWidget* backdrop = MakeImage(*this, form.Image1, this, Qt::transparent);
  backdrop->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  cell->addWidget(backdrop, 0, 0);
  auto* sheet = new QWidget(this);
  auto* rows = new QVBoxLayout(sheet);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(margin);
  QWidget* logo = MakeImage(*this, form.Image2, sheet, Qt::transparent);
  logo->setFixedSize(programSize);
  columns->addWidget(logo, 0, Qt::AlignTop);
  columns->addLayout(Texts());
  rows->addLayout(columns);
  auto* buttons = new QHBoxLayout;
  QWidget* vendor = MakeImage(*this, form.Image3, sheet, Qt::transparent);
  vendor->setFixedSize(vendorSize);
  buttons->addWidget(vendor);
  buttons->addStretch();
  // The keyboard begins at OK.
  QPushButton* ok = MakeButton(*this, form.cmdOK, sheet);
  QPushButton* facts = MakeButton(*this, form.cmdSysInfo, sheet);
  buttons->addWidget(facts);
  buttons->addWidget(ok);
  rows->addLayout(buttons);
  cell->addWidget(sheet, 0, 0);
  sheet->raise();
  ok->setFocus();
}

QLayout* AboutView::Texts() {
  auto* texts = new QVBoxLayout;
  texts->setSpacing(gap);
  QLabel* title = MakeLabel(*this, form.lblTitle, this);
  Enlarge(title, 10);
  texts->addWidget(title);
  texts->addWidget(MakeLabel(*this, form.lblVersion, this));
  texts->addSpacing(margin / 2);
  QLabel* description = MakeLabel(*this, form.lblDescription, this);
  description->setWordWrap(true);
  description->setFixedWidth(textWidth);
  texts->addWidget(description);
  texts->addSpacing(margin / 2);
  for (HyperLink* link : {&form.HyperLinkLabel1, &form.HyperLinkLabel2}) {
    texts->addWidget(MakeLink(*this, *link, this), 0, Qt::AlignLeft);
  }
  return texts;
}

}  // namespace lumidex
