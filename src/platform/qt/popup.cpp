#include "platform/qt/popup.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <optional>
#include <utility>

#include "base/run_time_error.h"
#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"

namespace lumidex {
namespace {

// Notices presses beside it, which close it.
class OpenMenu final : public QMenu {
 public:
  std::function<void(QPoint place)> onPressedBeside;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    const bool isBeside = !rect().contains(event->position().toPoint());
    const QPoint place = event->globalPosition().toPoint();
    QMenu::mousePressEvent(event);
    if (isBeside && onPressedBeside) onPressedBeside(place);
  }
};

// Beside the mouse, not under it: a second press at the same place is to miss the entries.
QPoint PlaceFor(const QMenu& menu, QPoint mouse) {
  constexpr int gap = 10;
  const QSize size = menu.sizeHint();
  const QScreen* screen = QGuiApplication::screenAt(mouse);
  const bool fitsBelow = !screen || mouse.y() + gap + size.height() <= screen->geometry().bottom();
  return {mouse.x(), fitsBelow ? mouse.y() + gap : mouse.y() - gap - size.height()};
}

}  // namespace

void ShowItem(const MenuLine& line) {
  if (!line.item->IsSeparator()) line.action->setText(ToQt(line.item->Caption.Get()));
  line.action->setEnabled(line.item->Enabled);
  line.action->setVisible(line.item->Visible);
  line.action->setCheckable(line.item->Checked);
  line.action->setChecked(line.item->Checked);
}

std::vector<MenuLine> FillMenu(QMenu& menu, const Form& form, const MenuItem& root,
                               const std::function<void(MenuItem& item)>& chosen) {
  std::vector<MenuLine> lines;
  for (Control* control : form.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (!item || item->Parent() != &root) continue;
    QAction* action = item->IsSeparator() ? menu.addSeparator() : menu.addAction(QString());
    action->setObjectName(ToQt(item->Name()));
    lines.push_back({item, action});
    ShowItem(lines.back());
    QObject::connect(action, &QAction::triggered, &menu, [chosen, item] { chosen(*item); });
    auto below = std::make_unique<QMenu>(&menu);
    const auto more = FillMenu(*below, form, *item, chosen);
    if (more.empty()) continue;
    action->setMenu(below.release());
    lines.insert(lines.end(), more.begin(), more.end());
  }
  return lines;
}

void QtPopup::LetDesktopDraw(const std::function<void()>& asked) {
  isAsked_ = true;
  asked();
  isAsked_ = false;
}

void QtPopup::PopupMenu(WindowHandle formHandle, WindowHandle menuHandle) {
  if (isAsked_) return;
  const Form* form = views_.FormOf(formHandle);
  const MenuItem* root = nullptr;
  for (const Control* control : form ? form->Controls() : std::vector<Control*>()) {
    if (control->hwnd() == menuHandle) root = dynamic_cast<const MenuItem*>(control);
  }
  if (!root || desktopDraws_) throw RunTimeError(ErrorNumber::InvalidCall);
  if (open_) open_->close();
  OpenMenu menu;
  MenuItem* chosen = nullptr;
  FillMenu(menu, *form, *root, [&chosen](MenuItem& item) { chosen = &item; });
  std::optional<QPoint> beside;
  menu.onPressedBeside = [&beside](QPoint place) { beside = place; };
  open_ = &menu;
  menu.popup(PlaceFor(menu, QCursor::pos()));
  if (!menu.isVisible()) throw RunTimeError(ErrorNumber::InvalidCall);
  events_.RunUntil([&menu] { return !menu.isVisible(); });
  // Later, when the menu and its hold of the mouse are gone.
  if (beside) {
    events_.Post([this, place = *beside] {
      if (OnPressedBeside) OnPressedBeside(place);
    });
  }
  // Its error is its own, not that of whoever opened the menu.
  if (chosen) events_.Guard([chosen] { chosen->Click(); });
}

}  // namespace lumidex
