#include "platform/qt/views/directory_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int previewSide = 150;
constexpr int leastListWidth = 230;
constexpr int leastListHeight = 260;
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
  columns->addLayout(Places(), 1);
  columns->addLayout(Files(), 1);
  columns->addLayout(Preview());
  rows->addLayout(columns, 1);
  rows->addSpacing(groupSpacing);
  rows->addLayout(Buttons());
}

QLayout* DirectoryView::Places() {
  auto* column = new QVBoxLayout;
  column->setSpacing(labelSpacing);
  QComboBox* drives = MakeDriveList(*this, form.Drive1, this);
  column->addWidget(MakeLabel(*this, form.Label1, this, drives));
  column->addWidget(drives);
  column->addSpacing(groupSpacing);
  RowList* directories = MakeDirList(*this, form.Dir1, this);
  directories->setMinimumSize(leastListWidth, leastListHeight);
  column->addWidget(MakeLabel(*this, form.Label2, this, directories));
  column->addWidget(directories, 1);
  column->addSpacing(groupSpacing);
  column->addWidget(MakeCheckBox(*this, form.chkSearchSubs, this));
  return column;
}

QLayout* DirectoryView::Files() {
  auto* column = new QVBoxLayout;
  column->setSpacing(labelSpacing);
  RowList* files = MakeFileList(*this, form.File1, this);
  files->setMinimumWidth(leastListWidth);
  column->addWidget(MakeLabel(*this, form.lblFilename, this, files));
  column->addWidget(files, 1);
  column->addSpacing(groupSpacing);
  column->addWidget(MakeButton(*this, form.cmdSelectFileTypes, this));
  return column;
}

QLayout* DirectoryView::Preview() {
  auto* column = new QVBoxLayout;
  auto* frame = new QFrame(this);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* middle = new QHBoxLayout(frame);
  middle->setContentsMargins(3, 3, 3, 3);
  QWidget* picture = MakeImage(*this, form.imgThumbNail, frame);
  picture->setFixedSize(previewSide, previewSide);
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
