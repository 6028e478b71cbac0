#pragma once
// A list of rows that are read from a control on demand, so that the longest lists cost nothing until they
// are looked at. Used for list boxes and for the directory and file lists.

#include <QAbstractListModel>
#include <QListView>
#include <QTimer>
#include <functional>

namespace lumidex {

// Where the rows come from.
struct RowSource {
  std::function<int()> count;
  std::function<QString(int row)> text;
  // The row that the control has selected, -1 for none.
  std::function<int()> selected;
  // The others may be left out.
  std::function<QIcon(int row)> icon;
  std::function<int(int row)> indent;  // steps
  std::function<bool(int row)> ticked;
};

class RowModel final : public QAbstractListModel {
 public:
  RowModel(RowSource source, QObject* parent);

  // Takes over the source's present rows. Rows are told apart by position, so what stands on the screen stays
  // where it is.
  void Refresh();

  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  const RowSource& Source() const { return source_; }
  std::function<void(int row, bool ticked)> onTick;

 private:
  RowSource source_;
  int rows_ = 0;  // as last told to the view
};

class RowList final : public QListView {
 public:
  RowList(RowSource source, QWidget* parent);

  // Shows the source's rows and selection. While a list grows quickly the rows are taken over a few times a
  // second; `atOnce` does it now.
  void Refresh(bool atOnce);
  void ShowSelection();
  // What a layout gives the list where it has the room.
  void SetWantedSize(const QSize& size) { wantedSize_ = size; }
  QSize sizeHint() const override { return wantedSize_.isValid() ? wantedSize_ : QListView::sizeHint(); }

  // What the user does.
  std::function<void(int row)> onSelect;  // a press, or a key that moves the selection
  std::function<void(int row)> onDoubleClick;
  // Told a key code before the list acts on it; true when the key is used up.
  std::function<bool(int code)> onKey;
  // Asked for a menu there, on the screen; the row is selected by then.
  std::function<void(const QPoint& at)> onOffer;
  RowModel& Rows() { return model_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void TellSelection(bool always);
  void TickCurrent();

  RowModel model_;
  QTimer pause_{this};
  QSize wantedSize_;
  bool waiting_ = false;
};

}  // namespace lumidex
