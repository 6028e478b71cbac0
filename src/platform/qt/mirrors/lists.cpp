// List boxes and the drive, directory and file lists.

#include <QApplication>
#include <QComboBox>
#include <QSignalBlocker>
#include <QStyle>
#include <memory>

#include "base/text.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int longList = 1000;

void ShowListColour(QWidget& list, std::int32_t value) {
  const QColor back = ToColour(value);
  if (!back.isValid() || back == list.palette().color(QPalette::Active, QPalette::Base)) return;
  QPalette colours = list.palette();
  colours.setColor(QPalette::Base, back);
  colours.setColor(QPalette::Text, ReadableOn(back));
  list.setPalette(colours);
}

// The last part of a path; a root stays whole.
QString LastPart(const std::string& path, char separator) {
  const auto cut = path.find_last_of(separator);
  if (cut == std::string::npos || cut + 1 == path.size()) return ToQt(path);
  return ToQt(path.substr(cut + 1));
}

// A signal's connection that ends with the widget.
class KeptConnection final : public QObject {
 public:
  KeptConnection(QObject* parent, Connection connection)
      : QObject(parent), connection_(std::move(connection)) {}

 private:
  Connection connection_;
};

}  // namespace

RowList* MakeListBox(FormView& view, ListBox& control, QWidget* parent) {
  RowSource source;
  source.count = [&control] { return control.ListCount(); };
  source.text = [&control](int row) { return ToQt(control.List(row)); };
  source.selected = [&control] { return control.ListIndex(); };
  if (control.Style() == ListStyle::CheckBoxes) {
    source.ticked = [&control](int row) { return row < control.ListCount() && control.Selected(row); };
  }
  auto* list = new RowList(std::move(source), parent);
  // What the next push has to do; a burst of changes ends in one.
  struct Pending {
    bool rows = true;
    bool onlyMore = false;  // the rows that were there are as they were
    bool selection = true;
  };
  const auto pending = std::make_shared<Pending>();
  Mirror* mirror = view.Follow(control, list, [&control, list, pending] {
    ShowListColour(*list, control.BackColor);
    const Pending now = *pending;
    *pending = {false, true, false};
    // A long list that is being filled need not show each row at once: telling of rows costs a look at all of
    // them.
    const bool isFilling = now.onlyMore && control.ListCount() > longList;
    if (now.rows) list->Refresh(control.Style() != ListStyle::Sorted && !isFilling);
    if (now.selection || !now.rows) list->ShowSelection();
  });
  new KeptConnection(
      mirror, control.ItemsChanged.Connect([&control, mirror, pending](const ListChange& change) {
        const bool onlySelection = change.kind == ListChange::Kind::Selection;
        const bool isAppended =
            change.kind == ListChange::Kind::Inserted && change.position == control.ListCount() - 1;
        (onlySelection ? pending->selection : pending->rows) = true;
        pending->onlyMore = pending->onlyMore && (onlySelection || isAppended);
        mirror->MarkChanged();
      }));
  list->onSelect = [&view, &control, mirror](int row) {
    view.Serve([&] { control.UserSelect(row); }, mirror);
  };
  list->onDoubleClick = [&view, &control, mirror](int) {
    view.Serve([&] { control.UserDoubleClick(); }, mirror);
  };
  list->Rows().onTick = [&view, &control, mirror](int row, bool ticked) {
    view.Serve([&] { control.UserTick(row, ticked); }, mirror);
  };
  return list;
}

QComboBox* MakeDriveList(FormView& view, DriveList& control, QWidget* parent) {
  auto* box = new QComboBox(parent);
  SetAccessibleRole(*box, QAccessible::ComboBox);
  const auto drives = std::make_shared<std::vector<std::string>>();
  Mirror* mirror = view.Follow(control, box, [&control, box, drives] {
    const QSignalBlocker quiet(box);
    // Media come and go, so the drives are asked for whenever the list changes.
    auto present = control.Drives();
    if (present != *drives) {
      *drives = std::move(present);
      box->clear();
      for (const std::string& drive : *drives) box->addItem(ToQt(drive));
    }
    const auto found = std::ranges::find(*drives, control.Drive());
    box->setCurrentIndex(found == drives->end() ? -1 : static_cast<int>(found - drives->begin()));
  });
  QObject::connect(box, &QComboBox::activated, mirror, [&view, &control, mirror, drives](int row) {
    const std::string drive = (*drives)[static_cast<std::size_t>(row)];
    view.Serve([&] { control.UserSelect(drive); }, mirror);
  });
  return box;
}

RowList* MakeDirList(FormView& view, DirList& control, QWidget* parent) {
  const char separator = view.GetForm().GetPlatform().files.Separator();
  const QStyle* style = QApplication::style();
  const QIcon open = style->standardIcon(QStyle::SP_DirOpenIcon);
  const QIcon closed = style->standardIcon(QStyle::SP_DirClosedIcon);
  const QIcon link = style->standardIcon(QStyle::SP_DirLinkIcon);
  // Row 0 is the root of the drive; the control counts the parents down from -1, the directory itself.
  RowSource source;
  source.count = [&control] { return control.Depth() + control.ListCount(); };
  source.text = [&control, separator](int row) {
    return LastPart(control.List(row - control.Depth()), separator);
  };
  source.selected = [&control] { return control.Depth() == 0 ? -1 : control.ListIndex() + control.Depth(); };
  source.icon = [&control, open, closed, link](int row) {
    const int index = row - control.Depth();
    return index < 0 ? open : control.IsLink(index) ? link : closed;
  };
  source.indent = [&control](int row) { return std::min(row, control.Depth()); };
  auto* list = new RowList(std::move(source), parent);
  Mirror* mirror = view.Follow(control, list, [list] { list->Refresh(true); });
  list->onSelect = [&view, &control, mirror](int row) {
    view.Serve([&] { control.UserHighlight(row - control.Depth()); }, mirror);
  };
  const auto openRow = [&view, &control, mirror](int row) {
    view.Serve([&] { control.UserOpen(row - control.Depth()); }, mirror);
  };
  list->onDoubleClick = openRow;
  list->onKey = [list, openRow](int code) {
    const int row = list->currentIndex().row();
    if (code == 13 && row >= 0) openRow(row);
    // The space bar went to the control as a key press; the list itself must not act on it as well.
    return (code == 13 && row >= 0) || code == 32;
  };
  return list;
}

RowList* MakeFileList(FormView& view, FileList& control, QWidget* parent) {
  RowSource source;
  source.count = [&control] { return control.ListCount(); };
  source.text = [&control](int row) { return ToQt(control.List(row)); };
  source.selected = [&control] { return control.ListIndex(); };
  auto* list = new RowList(std::move(source), parent);
  Mirror* mirror = view.Follow(control, list, [list] { list->Refresh(true); });
  list->onSelect = [&view, &control, mirror](int row) {
    view.Serve([&] { control.UserSelect(row); }, mirror);
  };
  list->onDoubleClick = [&view, &control, mirror](int) { view.Serve([&] { control.OnDblClick(); }, mirror); };
  return list;
}

}  // namespace lumidex
