// Tabs in several rows.

#include <QAbstractButton>
#include <QGridLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QStyleOptionTab>
#include <QStylePainter>

#include "platform/qt/accessibility.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

class TabButton final : public QAbstractButton {
 public:
  TabButton(const QString& text, QWidget* parent) : QAbstractButton(parent) {
    SetAccessibleRole(*this, QAccessible::PageTab);
    setText(text);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
  }

  QSize sizeHint() const override {
    const QStyleOptionTab option = Option();
    const int width = option.fontMetrics.size(Qt::TextShowMnemonic, text()).width() +
                      style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option, this);
    const int height =
        option.fontMetrics.height() + style()->pixelMetric(QStyle::PM_TabBarTabVSpace, &option, this);
    return style()->sizeFromContents(QStyle::CT_TabBarTab, &option, {width, height}, this);
  }

 protected:
  void paintEvent(QPaintEvent*) override { QStylePainter(this).drawControl(QStyle::CE_TabBarTab, Option()); }

 private:
  QStyleOptionTab Option() const {
    QStyleOptionTab option;
    option.initFrom(this);
    option.shape = QTabBar::RoundedNorth;
    option.position = QStyleOptionTab::Middle;
    option.text = text();
    if (isChecked()) option.state |= QStyle::State_Selected;
    return option;
  }
};

class TabRows final : public QWidget {
 public:
  TabRows(const TabStrip& control, int perRow, QWidget* parent)
      : QWidget(parent), perRow_(perRow), grid_(new QGridLayout(this)) {
    SetAccessibleRole(*this, QAccessible::PageTabList);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setSpacing(0);
    for (const std::string& caption : control.Captions()) {
      tabs_.push_back(new TabButton(ToQt(caption), this));
      tabs_.back()->setAccessibleName(WithoutAccessKey(caption));
    }
    // From anywhere in the window, as tabs are changed everywhere.
    for (const auto& [keys, step] : {std::pair{QKeySequence(Qt::CTRL | Qt::Key_Tab), 1},
                                     {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1},
                                     {QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1},
                                     {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1}}) {
      connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, step = step] {
        const int count = static_cast<int>(tabs_.size());
        Press((chosen_ + step + count) % count);
      });
    }
  }

  const std::vector<TabButton*>& Tabs() const { return tabs_; }

  void Choose(int page) {
    if (page == chosen_) return;
    chosen_ = page;
    tabs_[static_cast<std::size_t>(page)]->setChecked(true);
    const int count = static_cast<int>(tabs_.size());
    const int rows = (count + perRow_ - 1) / perRow_;
    for (int tab = 0; tab < count; ++tab) {
      // Rows move round until the chosen one is the last.
      const int row = (tab / perRow_ + rows - 1 - page / perRow_) % rows;
      grid_->addWidget(tabs_[static_cast<std::size_t>(tab)], row, tab % perRow_);
    }
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const int step = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    const int next = chosen_ + step;
    if (step == 0 || next < 0 || next >= static_cast<int>(tabs_.size())) {
      QWidget::keyPressEvent(event);
      return;
    }
    Press(next);
  }

 private:
  void Press(int page) {
    tabs_[static_cast<std::size_t>(page)]->setFocus();
    tabs_[static_cast<std::size_t>(page)]->click();
  }

  int perRow_;
  int chosen_ = -1;
  QGridLayout* grid_;
  std::vector<TabButton*> tabs_;
};

}  // namespace

QWidget* MakeTabRows(FormView& view, TabStrip& control, QWidget* parent, int perRow) {
  auto* rows = new TabRows(control, perRow, parent);
  Mirror* mirror = view.Follow(control, rows, [&control, rows] { rows->Choose(control.Tab); });
  for (std::size_t page = 0; page < rows->Tabs().size(); ++page) {
    QObject::connect(rows->Tabs()[page], &QAbstractButton::clicked, mirror, [&view, &control, mirror, page] {
      view.Serve([&] { control.UserSelect(static_cast<int>(page)); }, mirror);
    });
  }
  return rows;
}

}  // namespace lumidex
