// The toolbar: a row of picture buttons that is one stop of the Tab key; arrow keys move within it.

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/accessibility.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int drawnIconSide = 24;

class ToolbarView final : public QWidget {
 public:
  // `iconSide` in logical pixels.
  ToolbarView(int iconSide, QWidget* parent)
      : QWidget(parent), iconSize_(iconSide, iconSide), row_(new QHBoxLayout(this)) {
    row_->setContentsMargins(2, 2, 2, 2);
    row_->setSpacing(0);
    row_->addStretch();
    // Its pictures have to be seen, whatever the window shows behind it.
    setAutoFillBackground(true);
    SetAccessibleRole(*this, QAccessible::ToolBar);
    setAccessibleName(QStringLiteral("Toolbar"));
  }

  QToolButton* Add(const ToolbarButton& button) {
    auto* shown = new QToolButton(this);
    shown->setObjectName(ToQt(button.Key));
    shown->setAutoRaise(true);
    shown->setIconSize(iconSize_);
    if (!button.ImageKey.empty()) shown->setIcon(ArtworkIcon("toolbar/" + button.ImageKey));
    if (!button.Caption.empty()) {
      shown->setText(ToQt(button.Caption));
      shown->setToolButtonStyle(button.ImageKey.empty() ? Qt::ToolButtonTextOnly
                                                        : Qt::ToolButtonTextUnderIcon);
    }
    shown->setToolTip(ToQt(button.ToolTipText));
    shown->setAccessibleName(ToQt(button.ToolTipText).trimmed());
    shown->setFocusPolicy(Qt::NoFocus);
    shown->installEventFilter(this);
    row_->insertWidget(static_cast<int>(buttons_.size()), shown);
    buttons_.push_back(shown);
    return shown;
  }

  void Show(const Toolbar& control) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
      const ToolbarButton& button = control.Button(static_cast<int>(i) + 1);
      if (buttons_[i]->isEnabled() != button.Enabled) buttons_[i]->setEnabled(button.Enabled);
      if (buttons_[i]->isHidden() == button.Visible) buttons_[i]->setVisible(button.Visible);
    }
    StopAt(stop_);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Left && key != Qt::Key_Right) return false;
    MoveFocus(watched, key == Qt::Key_Left ? -1 : 1);
    return true;
  }

 private:
  static bool CanStop(const QToolButton* button) { return button->isEnabled() && !button->isHidden(); }

  // Makes a button the one where Tab stops; the first that can be where it can not.
  void StopAt(QToolButton* button) {
    if (!button || !CanStop(button)) {
      const auto first = std::ranges::find_if(buttons_, &CanStop);
      button = first == buttons_.end() ? nullptr : *first;
    }
    if (button == stop_ && button && button->focusPolicy() == Qt::TabFocus) return;
    stop_ = button;
    for (QToolButton* each : buttons_) each->setFocusPolicy(each == stop_ ? Qt::TabFocus : Qt::NoFocus);
  }

  void MoveFocus(const QObject* from, int step) {
    const auto count = static_cast<int>(buttons_.size());
    int at = 0;
    while (at < count && buttons_[static_cast<std::size_t>(at)] != from) ++at;
    for (at += step; at >= 0 && at < count; at += step) {
      QToolButton* next = buttons_[static_cast<std::size_t>(at)];
      if (!CanStop(next)) continue;
      // Tab comes back to where the arrows went.
      StopAt(next);
      next->setFocus(Qt::TabFocusReason);
      return;
    }
  }

  QSize iconSize_;
  QHBoxLayout* row_;
  std::vector<QToolButton*> buttons_;
  QToolButton* stop_ = nullptr;
};

}  // namespace

QWidget* MakeToolbar(FormView& view, Toolbar& control, QWidget* parent) {
  // As drawn, unless there is less room for it than designed.
  auto* bar =
      new ToolbarView(static_cast<int>(drawnIconSide * std::min(1.0, view.GetUnits().factor)), parent);
  std::vector<QToolButton*> buttons;
  for (int position = 1; position <= control.Count(); ++position) {
    buttons.push_back(bar->Add(control.Button(position)));
  }
  Mirror* mirror = view.Follow(control, bar, [&control, bar] { bar->Show(control); });
  for (int position = 1; position <= control.Count(); ++position) {
    QObject::connect(
        buttons[static_cast<std::size_t>(position - 1)], &QToolButton::clicked, mirror,
        [&view, &control, mirror, position] { view.Serve([&] { control.UserPress(position); }, mirror); });
  }
  return bar;
}

}  // namespace lumidex
