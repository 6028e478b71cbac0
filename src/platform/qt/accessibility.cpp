#include "platform/qt/accessibility.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QComboBox>

namespace lumidex {
namespace {

constexpr char roleProperty[] = "accessibleRole";

class DescribedWidget final : public QAccessibleWidget {
 public:
  DescribedWidget(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    if (const auto* button = Button()) {
      const bool isChosen = button->isChecked();
      if (role() == QAccessible::PageTab) {
        state.selectable = true;
        state.selected = isChosen;
      } else {
        state.checkable = button->isCheckable();
        state.checked = isChosen;
      }
    }
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    // The toolkit names a box after what is chosen in it.
    const auto* box = qobject_cast<QComboBox*>(widget());
    if (box && kind == QAccessible::Value) return box->currentText();
    return QAccessibleWidget::text(kind);
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (Button()) names.prepend(pressAction());
    if (qobject_cast<QComboBox*>(widget())) names.prepend(showMenuAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (auto* button = Button(); button && name == pressAction()) {
      button->click();
    } else if (auto* box = qobject_cast<QComboBox*>(widget()); box && name == showMenuAction()) {
      box->showPopup();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  QAbstractButton* Button() const { return qobject_cast<QAbstractButton*>(widget()); }
};

QAccessibleInterface* MakeDescribed(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget) return nullptr;
  const QVariant role = widget->property(roleProperty);
  return role.isValid() ? new DescribedWidget(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(roleProperty, static_cast<int>(role));
}

void InstallAccessibleRoles() {
  // The toolkit takes a factory once, however often it is offered.
  QAccessible::installFactory(&MakeDescribed);
}

}  // namespace lumidex
