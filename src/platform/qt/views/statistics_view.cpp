#include "platform/qt/views/statistics_view.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

// The backdrop shows around the sheet that holds everything.
constexpr int backdropWidth = 12;
constexpr int digits = 7;
constexpr int totalDigits = 15;
// The three rows of file types.
constexpr int firstOfRow[] = {1, 11, 21, FileTypeCount + 1};

}  // namespace

StatisticsView::StatisticsView(FormViews& views, frmstatsWindow& itsForm) : TypedView(views, itsForm) {
  auto* cell = new QGridLayout(this);
  cell->setContentsMargins(0, 0, 0, 0);
  cell->setSpacing(0);
  QWidget* backdrop = MakeImage(*this, form.Image1, this);
  backdrop->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  cell->addWidget(backdrop, 0, 0, 3, 3);
  for (const int edge : {0, 2}) {
    cell->setRowMinimumHeight(edge, backdropWidth);
    cell->setColumnMinimumWidth(edge, backdropWidth);
  }
  // Beside the backdrop, so that what lies behind the sheet is not painted with each counter.
  auto* sheet = new QFrame(this);
  sheet->setFrameShape(QFrame::StyledPanel);
  sheet->setAutoFillBackground(true);
  cell->addWidget(sheet, 1, 1);
  cell->setRowStretch(1, 1);
  cell->setColumnStretch(1, 1);

  auto* rows = new QVBoxLayout(sheet);
  rows->addWidget(Progress());
  rows->addWidget(Types());
  rows->addWidget(Sizes());
  rows->addWidget(Colours());
  rows->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (CommandButton* button : {&form.cmdScan, &form.cmdReport, &form.cmdClose}) {
    buttons->addWidget(MakeButton(*this, *button, this));
  }
  rows->addLayout(buttons);
}

void StatisticsView::AddPair(QGridLayout& grid, int row, int column, Label& label, TextBox& box,
                             QWidget* parent) {
  QWidget* number = MakeTextBox(*this, box, parent);
  number->setMinimumWidth(number->fontMetrics().horizontalAdvance(QLatin1Char('8')) *
                          (&box == &form.txtTotalSize ? totalDigits : digits));
  if (auto* line = qobject_cast<QLineEdit*>(number)) line->setAlignment(Qt::AlignRight);
  // Counters are read, not written: the keyboard passes them by.
  number->setFocusPolicy(Qt::ClickFocus);
  QLabel* name = MakeLabel(*this, label, parent);
  name->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  number->setAccessibleName(name->text());
  grid.addWidget(name, row, column);
  grid.addWidget(number, row + 1, column);
}

QWidget* StatisticsView::Progress() {
  auto* part = new QWidget(this);
  auto* grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(MakeLabel(*this, form.lblCurrentFile, part), 0, 0);
  QLabel* name = MakeLabel(*this, form.lblCurrentFileName, part);
  // A long path must not widen the window.
  name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  grid->addWidget(name, 1, 0);
  grid->addWidget(MakeProgressBar(*this, form.ProgressBar1, part), 2, 0, 1, 3);
  AddPair(*grid, 0, 1, form.lblCurrent, form.txtCurrentFile, part);
  AddPair(*grid, 0, 2, form.lblTotalFiles, form.txtTotalFiles, part);
  grid->setColumnStretch(0, 1);
  return part;
}

QWidget* StatisticsView::Types() {
  QWidget* group = MakeFrame(*this, form.fmFileTypes, this);
  auto* grid = new QGridLayout(group);
  grid->setVerticalSpacing(2);
  for (int row = 0; row < 3; ++row) {
    for (int type = firstOfRow[row]; type < firstOfRow[row + 1]; ++type) {
      AddPair(*grid, 2 * row, type - firstOfRow[row], form.lblFileType(type), form.txtFileType(type), group);
    }
  }
  // The last row is one short: the total stands there.
  AddPair(*grid, 4, 9, form.lblFileTypeTotal, form.txtFileTypeTotal, group);
  return group;
}

QWidget* StatisticsView::Sizes() {
  QWidget* group = MakeFrame(*this, form.fmFileSizes, this);
  auto* grid = new QGridLayout(group);
  grid->setVerticalSpacing(2);
  const std::pair<Label*, TextBox*> pairs[] = {{&form.lblfilesize100, &form.txtfilesize100},
                                               {&form.lblfilesize200, &form.txtfilesize200},
                                               {&form.lblfilesize300, &form.txtfilesize300},
                                               {&form.lblfilesize400, &form.txtfilesize400},
                                               {&form.lblfilesize500, &form.txtfilesize500},
                                               {&form.lblFileSizeUnavailable, &form.txtFileSizeUnavailable},
                                               {&form.lblfilesizetotal, &form.txtfilesizetotal},
                                               {&form.lblTotalSize, &form.txtTotalSize}};
  int column = 0;
  for (const auto& [label, box] : pairs) AddPair(*grid, 0, column++, *label, *box, group);
  return group;
}

QWidget* StatisticsView::Colours() {
  QWidget* group = MakeFrame(*this, form.fmColors, this);
  auto* grid = new QGridLayout(group);
  grid->setVerticalSpacing(2);
  const std::pair<Label*, TextBox*> pairs[] = {
      {&form.lblColors2, &form.txtColors2},        {&form.lblColors16, &form.txtColors16},
      {&form.lblColors256, &form.txtColors256},    {&form.lblColors64K, &form.txtColors64K},
      {&form.lblColors167M, &form.txtColors167M},  {&form.lblColorsUnknown, &form.txtColorsUnknown},
      {&form.lblColorsTotal, &form.txtColorsTotal}};
  int column = 0;
  for (const auto& [label, box] : pairs) AddPair(*grid, 0, column++, *label, *box, group);
  return group;
}

}  // namespace lumidex
