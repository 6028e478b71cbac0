// The menu bar and popup menus, built from a form's menu items in the order of their declaration.

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <map>
#include <vector>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

void ShowItem(const MenuItem& item, QAction& action) {
  if (!item.IsSeparator()) action.setText(ToQt(item.Caption.Get()));
  action.setEnabled(item.Enabled);
  action.setVisible(item.Visible);
  // Checkable only where a mark has been seen: other items keep their place for icons.
  if (item.Checked) action.setCheckable(true);
  if (action.isCheckable()) action.setChecked(item.Checked);
}

void MirrorCommand(FormView& view, MenuItem& item, QAction& action) {
  action.setObjectName(ToQt(item.Name()));
  if (item.Shortcut.code) {
    action.setShortcut(QKeySequence(ToQt(item.Shortcut.Text())));
    // In the window itself, too: the keys work while the menu is hidden.
    view.addAction(&action);
  }
  auto* mirror = new Mirror(view.Pushes(), item, &action, [&item, &action] { ShowItem(item, action); });
  QObject::connect(&action, &QAction::triggered, mirror,
                   [&view, &item, mirror] { view.Serve([&] { item.UserShortcut(); }, mirror); });
}

// A form's menu items by what they stand below; the titles of the menu bar below null.
class MenuTree {
 public:
  explicit MenuTree(FormView& view) : view_(view) {
    for (Control* control : view.GetForm().Controls()) {
      if (auto* item = dynamic_cast<MenuItem*>(control)) below_[item->Parent()].push_back(item);
    }
  }

  const std::vector<MenuItem*>& Below(const MenuItem* root) { return below_[root]; }

  // Puts what stands below `root` into `addTo`.
  template <class Container>
  void AddItems(const MenuItem* root, Container& addTo, QWidget* owner) {
    for (MenuItem* item : Below(root)) {
      if (Below(item).empty()) {
        auto* action = new QAction(owner);
        if (item->IsSeparator()) action->setSeparator(true);
        MirrorCommand(view_, *item, *action);
        addTo.addAction(action);
      } else {
        auto* menu = new QMenu(owner);
        menu->setToolTipsVisible(false);
        AddItems(item, *menu, menu);
        QAction* action = menu->menuAction();
        action->setObjectName(ToQt(item->Name()));
        addTo.addMenu(menu);
        new Mirror(view_.Pushes(), *item, menu, [item, action] { ShowItem(*item, *action); });
      }
    }
  }

 private:
  FormView& view_;
  std::map<const MenuItem*, std::vector<MenuItem*>> below_;
};

}  // namespace

QMenuBar* MakeMenuBar(FormView& view) {
  auto* bar = new QMenuBar(&view);
  // A global menu would need the session bus at start.
  bar->setNativeMenuBar(false);
  MenuTree items(view);
  items.AddItems(nullptr, *bar, bar);
  // Without a title to show there is no bar.
  for (MenuItem* title : items.Below(nullptr)) {
    new Mirror(view.Pushes(), *title, bar, [bar] {
      const QList<QAction*> titles = bar->actions();
      const bool isNeeded = std::ranges::any_of(titles, &QAction::isVisible);
      if (bar->isHidden() == isNeeded) bar->setVisible(isNeeded);
    });
  }
  return bar;
}

QMenu* MakePopup(FormView& view, MenuItem& root) {
  auto* menu = new QMenu(&view);
  MenuTree(view).AddItems(&root, *menu, menu);
  return menu;
}

}  // namespace lumidex
