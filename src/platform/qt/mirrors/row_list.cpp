#include "platform/qt/mirrors/row_list.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/form_view.h"

namespace lumidex {
namespace {

constexpr int milliSecondsBetweenRefreshes = 100;
constexpr int pixelsPerIndent = 12;
// Between the boxes of rows that can be ticked.
constexpr int pixelsBetweenBoxes = 5;

// Rows are as wide as the list and cut long texts in the middle, where paths have least to say.
class RowDelegate final : public QStyledItemDelegate {
 public:
  RowDelegate(const RowModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int height = QStyledItemDelegate::sizeHint(option, index).height();
    return {1, model_.Source().ticked ? height + pixelsBetweenBoxes : height};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    if (model_.Source().indent)
      row.rect.adjust(model_.Source().indent(index.row()) * pixelsPerIndent, 0, 0, 0);
    QStyledItemDelegate::paint(painter, row, index);
  }

 private:
  const RowModel& model_;
};

}  // namespace

RowModel::RowModel(RowSource source, QObject* parent)
    : QAbstractListModel(parent), source_(std::move(source)) {}

void RowModel::Refresh() {
  const int count = source_.count();
  // A sorted list brings its rows into order when one is read, and tells of changes again only after that.
  if (count > 0) source_.text(0);
  if (count > rows_) {
    beginInsertRows({}, rows_, count - 1);
    rows_ = count;
    endInsertRows();
  } else if (count < rows_) {
    beginRemoveRows({}, count, rows_ - 1);
    rows_ = count;
    endRemoveRows();
  }
  if (rows_ > 0) dataChanged(index(0), index(rows_ - 1));
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return source_.text(index.row());
    case Qt::DecorationRole:
      return source_.icon ? QVariant(source_.icon(index.row())) : QVariant();
    case Qt::CheckStateRole:
      return source_.ticked ? QVariant(source_.ticked(index.row()) ? Qt::Checked : Qt::Unchecked)
                            : QVariant();
    default:
      return {};
  }
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemNeverHasChildren;
  if (source_.ticked) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool RowModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !onTick) return false;
  onTick(index.row(), value.toInt() == Qt::Checked);
  return true;
}

RowList::RowList(RowSource source, QWidget* parent) : QListView(parent), model_(std::move(source), this) {
  setModel(&model_);
  setItemDelegate(new RowDelegate(model_, this));
  setUniformItemSizes(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  setTabKeyNavigation(false);
  pause_.setObjectName(QStringLiteral("pauseBetweenRefreshes"));
  pause_.setInterval(milliSecondsBetweenRefreshes);
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, [this] {
    if (waiting_) Refresh(true);
  });
}

void RowList::Refresh(bool atOnce) {
  if (!atOnce && pause_.isActive()) {
    waiting_ = true;
    return;
  }
  waiting_ = false;
  model_.Refresh();
  ShowSelection();
  pause_.start();
}

void RowList::ShowSelection() {
  const int row = model_.Source().selected();
  if (row >= model_.rowCount({})) {
    waiting_ = false;
    model_.Refresh();
  }
  if (row < 0) {
    selectionModel()->clear();
    return;
  }
  const QModelIndex index = model_.index(row);
  if (currentIndex() == index && selectionModel()->isSelected(index)) return;
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  scrollTo(index);
}

void RowList::TellSelection(bool always) {
  const int row = currentIndex().row();
  if (row < 0 || !onSelect) return;
  if (always || row != model_.Source().selected()) onSelect(row);
}

void RowList::mousePressEvent(QMouseEvent* event) {
  if (waiting_) Refresh(true);
  // Below the last row nothing is chosen, and nothing loses its mark.
  if (!indexAt(event->position().toPoint()).isValid()) return;
  QListView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton) TellSelection(true);
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
  QListView::mouseMoveEvent(event);
  if (event->buttons() & Qt::LeftButton) TellSelection(false);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && index.isValid() && onDoubleClick) onDoubleClick(index.row());
}

void RowList::TickCurrent() {
  const int row = currentIndex().row();
  // The row is selected first, so that the next arrow goes on from it.
  selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
  TellSelection(false);
  if (model_.onTick && row < model_.rowCount({})) model_.onTick(row, !model_.Source().ticked(row));
}

void RowList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (!hasFocus()) return;
  // Around the whole, since there may be no row that could show it.
  constexpr int thickness = 2;
  QPainter painter(viewport());
  painter.setPen(QPen(palette().color(QPalette::Highlight), thickness));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void RowList::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  // The frame around it does not scroll along.
  if (hasFocus()) viewport()->update();
}

void RowList::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  viewport()->update();
}

void RowList::focusOutEvent(QFocusEvent* event) {
  QListView::focusOutEvent(event);
  viewport()->update();
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex row = byKey ? currentIndex() : indexAt(event->pos());
  if (!onOffer || !row.isValid()) return;
  onOffer(byKey ? viewport()->mapToGlobal(visualRect(row).center()) : event->globalPos());
}

void RowList::keyPressEvent(QKeyEvent* event) {
  if (waiting_) Refresh(true);
  // The program's own command, where it has one.
  if (event->matches(QKeySequence::Copy)) {
    event->ignore();
    return;
  }
  const int code = KeyCode(*event);
  if (code && onKey && onKey(code)) return;
  if (code == 13 || code == 27) {
    event->ignore();  // for the window's default and cancel buttons
    return;
  }
  if (event->key() == Qt::Key_Space && model_.Source().ticked && currentIndex().isValid()) {
    TickCurrent();
    return;
  }
  // A list that takes the keyboard has a place to start from before anything is selected in it: that place is
  // the first that an arrow selects.
  const bool startsHere = !selectionModel()->hasSelection() && currentIndex().isValid() &&
                          (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up);
  if (startsHere) {
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
  } else {
    QListView::keyPressEvent(event);
  }
  if (selectionModel()->hasSelection()) TellSelection(false);
}

}  // namespace lumidex
