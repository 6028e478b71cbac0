// The menu bar and popup menus, built from a form's menu items in the order of their declaration.

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

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

bool HasChildren(const Form& form, const MenuItem& item) {
  for (const Control* control : form.Controls()) {
    const auto* child = dynamic_cast<const MenuItem*>(control);
    if (child && child->Parent() == &item) return true;
  }
  return false;
}

// Puts what stands below `root` (the whole form's items below null) into `addTo`.
template <class Container>
void AddItems(FormView& view, const MenuItem* root, Container& addTo, QWidget* owner) {
  for (Control* control : view.GetForm().Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (!item || item->Parent() != root) continue;
    if (HasChildren(view.GetForm(), *item)) {
      auto* menu = new QMenu(owner);
      menu->setToolTipsVisible(false);
      AddItems(view, item, *menu, menu);
      QAction* action = menu->menuAction();
      action->setObjectName(ToQt(item->Name()));
      addTo.addMenu(menu);
      new Mirror(view.Pushes(), *item, menu, [item, action] { ShowItem(*item, *action); });
    } else {
      auto* action = new QAction(owner);
      if (item->IsSeparator()) action->setSeparator(true);
      MirrorCommand(view, *item, *action);
      addTo.addAction(action);
    }
  }
}

}  // namespace

QMenuBar* MakeMenuBar(FormView& view) {
  auto* bar = new QMenuBar(&view);
  // A global menu would need the session bus at start.
  bar->setNativeMenuBar(false);
  AddItems(view, nullptr, *bar, bar);
  // Without a title to show there is no bar.
  for (Control* control : view.GetForm().Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (!item || item->Parent()) continue;
    new Mirror(view.Pushes(), *item, bar, [bar] {
      const QList<QAction*> titles = bar->actions();
      const bool isNeeded = std::ranges::any_of(titles, &QAction::isVisible);
      if (bar->isHidden() == isNeeded) bar->setVisible(isNeeded);
    });
  }
  return bar;
}

QMenu* MakePopup(FormView& view, MenuItem& root) {
  auto* menu = new QMenu(&view);
  AddItems(view, &root, *menu, menu);
  return menu;
}

}  // namespace lumidex
