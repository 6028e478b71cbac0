// Combo boxes.

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

void ShowEntries(const ComboBox& control, QComboBox& box) {
  QStringList entries;
  for (int index = 0; index < control.ListCount(); ++index) entries += ToQt(control.List(index));
  QStringList shown;
  for (int index = 0; index < box.count(); ++index) shown += box.itemText(index);
  if (entries == shown) return;
  box.clear();
  box.addItems(entries);
}

}  // namespace

QComboBox* MakeComboBox(FormView& view, ComboBox& control, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  Mirror* mirror = view.Follow(control, box, [&control, box] {
    const QSignalBlocker quiet(box);
    ShowEntries(control, *box);
    if (box->currentIndex() != control.ListIndex()) box->setCurrentIndex(control.ListIndex());
    if (box->currentText() != ToQt(control.Text.Get())) box->setEditText(ToQt(control.Text.Get()));
  });
  QObject::connect(box, &QComboBox::activated, mirror, [&view, &control, mirror](int row) {
    view.Serve([&] { control.UserSelect(row); }, mirror);
  });
  QObject::connect(box->lineEdit(), &QLineEdit::textEdited, mirror,
                   [&view, &control, mirror](const QString& text) {
                     view.Serve([&] { control.UserType(FromQt(text)); }, mirror);
                   });
  return box;
}

}  // namespace lumidex
