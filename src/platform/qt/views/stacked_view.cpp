#include "platform/qt/views/stacked_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/qt/content_area.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int leastTextWidth = 340;

}  // namespace

StackedView::StackedView(FormViews& views, Form& form) : FormView(views, form) {
  auto* rows = new QVBoxLayout(this);
  auto* body = new QWidget;
  auto* stack = new QVBoxLayout(body);
  stack->setContentsMargins(0, 0, 0, 0);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (Control* control : form.Controls()) {
    const bool isButton = dynamic_cast<CommandButton*>(control) != nullptr;
    QWidget* widget = MakeWidget(*this, *control, isButton ? static_cast<QWidget*>(this) : body);
    if (!widget) continue;
    if (isButton) {
      buttons->addWidget(widget);
      continue;
    }
    if (auto* label = qobject_cast<QLabel*>(widget)) {
      label->setWordWrap(true);
      label->setMinimumWidth(leastTextWidth);
    }
    stack->addWidget(widget);
  }
  stack->addStretch();
  rows->addWidget(new ContentArea(body, this));
  rows->addLayout(buttons);
}

}  // namespace lumidex
