// Tabs and grids.

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTableView>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

// Reads cells on demand.
class GridModel final : public QAbstractTableModel {
 public:
  GridModel(const Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  void Refresh() {
    if (rows_ == grid_.Rows() && columns_ == grid_.Cols()) {
      if (rows_ > 0 && columns_ > 0) dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
      return;
    }
    beginResetModel();
    rows_ = grid_.Rows();
    columns_ = grid_.Cols();
    endResetModel();
  }
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : columns_; }
  QVariant data(const QModelIndex& index, int role) const override {
    // The grid can have shrunk since the last refresh.
    const bool exists = index.row() < grid_.Rows() && index.column() < grid_.Cols();
    if (role != Qt::DisplayRole || !exists) return {};
    return ToQt(grid_.TextMatrix(index.row(), index.column()));
  }

 private:
  const Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace

QWidget* MakeTabs(FormView& view, TabStrip& control, QWidget* parent) {
  auto* tabs = new QTabBar(parent);
  tabs->setExpanding(false);
  for (const std::string& caption : control.Captions()) tabs->addTab(ToQt(caption));
  Mirror* mirror = view.Follow(control, tabs, [&control, tabs] {
    const QSignalBlocker quiet(tabs);
    tabs->setCurrentIndex(control.Tab);
  });
  QObject::connect(tabs, &QTabBar::currentChanged, mirror, [&view, &control, mirror](int page) {
    view.Serve([&] { control.UserSelect(page); }, mirror);
  });
  return tabs;
}

QWidget* MakeGrid(FormView& view, Grid& control, QWidget* parent) {
  auto* table = new QTableView(parent);
  auto* model = new GridModel(control, table);
  table->setModel(model);
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.Follow(control, table, [model] { model->Refresh(); });
  return table;
}

}  // namespace lumidex
