// Tabs in one row, alone or above their pages.

#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <QTabBar>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

QTabBar* NewBar(const TabStrip& control, QWidget* parent) {
  auto* bar = new QTabBar(parent);
  bar->setExpanding(false);
  for (const std::string& caption : control.Captions()) bar->addTab(ToQt(caption));
  return bar;
}

void TellChoice(FormView& view, TabStrip& control, QTabBar* bar, Mirror* mirror) {
  QObject::connect(bar, &QTabBar::currentChanged, mirror, [&view, &control, mirror](int page) {
    view.Serve([&] { control.UserSelect(page); }, mirror);
  });
}

class TabPages final : public QWidget {
 public:
  TabPages(const TabStrip& control, QWidget* parent) : QWidget(parent), bar_(NewBar(control, this)) {
    for (int page = 0; page < bar_->count(); ++page) pages_.push_back(new QWidget(this));
    bar_->raise();
    setFocusProxy(bar_);
  }

  QTabBar* Bar() const { return bar_; }
  const std::vector<QWidget*>& Pages() const { return pages_; }

  void Show(int chosen) {
    const QSignalBlocker quiet(bar_);
    bar_->setCurrentIndex(chosen);
    for (int page = 0; page < bar_->count(); ++page) {
      pages_[static_cast<std::size_t>(page)]->setVisible(page == chosen);
    }
  }

 protected:
  void resizeEvent(QResizeEvent*) override {
    bar_->setGeometry(0, 0, width(), bar_->sizeHint().height());
    for (QWidget* page : pages_) page->setGeometry(rect());
  }
  void paintEvent(QPaintEvent*) override {
    QStyleOptionTabWidgetFrame option;
    option.initFrom(this);
    option.rect.setTop(bar_->sizeHint().height() - 1);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameTabWidget, option);
  }

 private:
  QTabBar* bar_;
  std::vector<QWidget*> pages_;
};

}  // namespace

QWidget* MakeTabs(FormView& view, TabStrip& control, QWidget* parent) {
  QTabBar* bar = NewBar(control, parent);
  Mirror* mirror = view.Follow(control, bar, [&control, bar] {
    const QSignalBlocker quiet(bar);
    bar->setCurrentIndex(control.Tab);
  });
  TellChoice(view, control, bar, mirror);
  return bar;
}

QWidget* MakeTabPages(FormView& view, TabStrip& control, QWidget* parent) {
  auto* tabs = new TabPages(control, parent);
  Mirror* mirror = view.Follow(control, tabs, [&control, tabs] { tabs->Show(control.Tab); });
  view.SetInsides(control, tabs->Pages());
  TellChoice(view, control, tabs->Bar(), mirror);
  return tabs;
}

}  // namespace lumidex
