// Grids: the headings are the grid's first row and column.

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableView>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

// Reads cells on demand. Rows and columns here count from the first ones behind the headings.
class GridModel final : public QAbstractTableModel {
 public:
  GridModel(const Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  void Refresh() {
    const int rows = std::max(0, grid_.Rows() - 1);
    const int columns = std::max(0, grid_.Cols() - 1);
    if (columns != columns_ || rows < rows_) {
      beginResetModel();
      rows_ = rows;
      columns_ = columns;
      endResetModel();
    } else if (rows > rows_) {
      beginInsertRows({}, rows_, rows - 1);
      rows_ = rows;
      endInsertRows();
    }
    if (rows_ == 0 || columns_ == 0) return;
    dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    headerDataChanged(Qt::Vertical, 0, rows_ - 1);
  }
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : columns_; }
  QVariant data(const QModelIndex& index, int role) const override {
    return TextOf(index.row() + 1, index.column() + 1, role);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    return orientation == Qt::Horizontal ? TextOf(0, section + 1, role) : TextOf(section + 1, 0, role);
  }

 private:
  QVariant TextOf(int row, int column, int role) const {
    // The grid can have shrunk since the last refresh.
    const bool exists = row < grid_.Rows() && column < grid_.Cols();
    if (role != Qt::DisplayRole || !exists) return {};
    return ToQt(grid_.TextMatrix(row, column));
  }

  const Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
};

class GridView final : public QTableView {
 public:
  GridView(const Units& units, const Grid& grid, QWidget* parent)
      : QTableView(parent), units_(units), grid_(grid), model_(grid, this) {
    constexpr int spaceInRow = 6;
    setModel(&model_);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    // All rows alike: thousands of them are not measured one by one.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + spaceInRow);
  }

  void Show() {
    model_.Refresh();
    for (int column = 0; column < grid_.Cols(); ++column) ShowWidth(column);
    const QModelIndex current = model_.index(grid_.Row() - 1, grid_.Col() - 1);
    if (current != currentIndex()) setCurrentIndex(current);
  }

 private:
  // Only what the program has changed: the user may have dragged the border of a column since.
  void ShowWidth(int column) {
    const auto place = static_cast<std::size_t>(column);
    const int width = grid_.ColWidth(column);
    if (widths_.size() <= place) widths_.resize(place + 1, -1);
    if (width == widths_[place]) return;
    widths_[place] = width;
    const int pixels = width < 0 ? horizontalHeader()->defaultSectionSize() : units_.Pixels(width);
    if (column == 0) {
      verticalHeader()->setFixedWidth(pixels);
    } else {
      setColumnWidth(column - 1, pixels);
    }
  }

  const Units& units_;
  const Grid& grid_;
  GridModel model_;
  std::vector<int> widths_;
};

}  // namespace

QWidget* MakeGrid(FormView& view, Grid& control, QWidget* parent) {
  auto* table = new GridView(view.GetUnits(), control, parent);
  Mirror* mirror = view.Follow(control, table, [table] {
    const QSignalBlocker quiet(table->selectionModel());
    table->Show();
  });
  QObject::connect(table->selectionModel(), &QItemSelectionModel::currentChanged, mirror,
                   [&view, &control, mirror](const QModelIndex& current) {
                     view.Serve([&] { control.UserSelect(current.row() + 1, current.column() + 1); }, mirror);
                   });
  return table;
}

}  // namespace lumidex
