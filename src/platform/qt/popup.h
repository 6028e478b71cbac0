#pragma once
// Menus that pop up by themselves, built anew from the form's items at each opening.

#include <QMenu>
#include <QPointer>
#include <vector>

#include "controls/menu_item.h"
#include "ports/event_queue.h"
#include "ports/services.h"

namespace lumidex {

class FormViews;

// An item of the program and its line in a menu.
struct MenuLine {
  MenuItem* item;
  QAction* action;
};
// Adds what stands below `root` to the menu, and to what is answered. `chosen` is told which item was chosen.
std::vector<MenuLine> FillMenu(QMenu& menu, const Form& form, const MenuItem& root,
                               const std::function<void(MenuItem& item)>& chosen);
// Brings a line to its item's present state.
void ShowItem(const MenuLine& line);

class QtPopup final : public Popup {
 public:
  QtPopup(EventQueue& events, const FormViews& views) : events_(events), views_(views) {}
  void PopupMenu(WindowHandle form, WindowHandle menu) override;

  // A press outside has closed a menu; its place on the screen.
  std::function<void(QPoint place)> OnPressedBeside;

  // Where windows can't open menus at the mouse by themselves, the desktop draws them for the icon in its
  // notification area. `asked` runs with PopupMenu doing nothing; otherwise it fails there.
  void LetDesktopDraw(const std::function<void()>& asked);
  void SetDesktopDraws(bool draws) { desktopDraws_ = draws; }

 private:
  EventQueue& events_;
  const FormViews& views_;
  QPointer<QMenu> open_;
  bool desktopDraws_ = false;
  bool isAsked_ = false;
};

}  // namespace lumidex
