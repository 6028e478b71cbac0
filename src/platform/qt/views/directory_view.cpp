#include "platform/qt/views/directory_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int previewSide = 150;
constexpr int wantedListWidth = 230;
constexpr int wantedListHeight = 260;
constexpr int leastListSide = 120;
// A label stands close to what it names, groups stand apart.
constexpr int labelSpacing = 3;
constexpr int groupSpacing = 6;

}  // namespace

DirectoryView::DirectoryView(FormViews& views, SelectPictureDirectoryFormWindow& itsForm)
    : TypedView(views, itsForm) {
  auto* rows = new QVBoxLayout(this);
  QLabel* info = MakeLabel(*this, form.lblInfo, this);
  info->setWordWrap(true);
  rows->addWidget(info);
  rows->addSpacing(groupSpacing);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(2 * rows->spacing());
  columns->addLayout(Lists(), 1);
  columns->addLayout(Preview());
  rows->addLayout(columns, 1);
  rows->addSpacing(groupSpacing);
  rows->addLayout(Buttons());
}

QLayout* DirectoryView::Lists() {
  QComboBox* drives = MakeDriveList(*this, form.Drive1, this);
  RowList* directories = MakeDirList(*this, form.Dir1, this);
  RowList* files = MakeFileList(*this, form.File1, this);
  for (RowList* list : {directories, files}) {
    list->SetWantedSize({wantedListWidth, wantedListHeight});
    list->setMinimumSize(leastListSide, leastListSide);
  }
  // One row for both lists, so that they end in line.
  constexpr int listRow = 4;
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(labelSpacing);
  grid->setHorizontalSpacing(2 * style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
  grid->addWidget(MakeLabel(*this, form.Label1, this, drives), 0, 0);
  grid->addWidget(drives, 1, 0);
  grid->setRowMinimumHeight(2, groupSpacing);
  grid->addWidget(MakeLabel(*this, form.Label2, this, directories), 3, 0);
  grid->addWidget(directories, listRow, 0);
  grid->addWidget(MakeLabel(*this, form.lblFilename, this, files), 0, 1);
  grid->addWidget(files, 1, 1, listRow, 1);
  grid->setRowMinimumHeight(listRow + 1, groupSpacing);
  grid->addWidget(MakeCheckBox(*this, form.chkSearchSubs, this), listRow + 2, 0);
  grid->addWidget(MakeButton(*this, form.cmdSelectFileTypes, this), listRow + 2, 1);
  grid->setRowStretch(listRow, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  return grid;
}

QLayout* DirectoryView::Preview() {
  auto* column = new QVBoxLayout;
  auto* frame = new QFrame(this);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  constexpr int room = 4;
  frame->setFixedSize(previewSide + 2 * room, previewSide + 2 * room);
  auto* middle = new QHBoxLayout(frame);
  middle->setContentsMargins(0, 0, 0, 0);
  QWidget* picture = MakeImage(*this, form.imgThumbNail, frame);
  picture->setMaximumSize(previewSide, previewSide);
  picture->setAccessibleName(QStringLiteral("Preview"));
  middle->addWidget(picture, 0, Qt::AlignCenter);
  column->addWidget(frame, 0, Qt::AlignHCenter);
  auto* facts = new QFormLayout;
  int index = 1;
  for (Label* name : {&form.lblFileSize, &form.lblWidth, &form.lblHeight, &form.lblColors}) {
    QLabel* value = MakeLabel(*this, form.lblFileInfo(index++), this);
    // Room for the longest of the values, so that the lists keep their width.
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("16.7 Million (24-bit)")));
    facts->addRow(MakeLabel(*this, *name, this), value);
  }
  column->addLayout(facts);
  column->addStretch();
  static const char* const folders[] = {"Desktop", "My Documents", "Favorites"};
  for (int i = 0; i < 3; ++i) {
    QPushButton* button = MakeButton(*this, form.cmdFolder(i), this);
    button->setText(QString::fromLatin1(folders[i]));
    button->setAccessibleName(button->text());
    column->addWidget(button);
  }
  return column;
}

QLayout* DirectoryView::Buttons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(MakeButton(*this, form.cmdOK, this));
  row->addWidget(MakeButton(*this, form.cmdCancel, this));
  return row;
}

}  // namespace lumidex
