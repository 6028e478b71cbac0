// Command buttons, check boxes, option buttons.

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/accessibility.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

void ShowCaption(QAbstractButton& button, const std::string& caption) {
  // A button that shows a picture has no caption of its own; its view may give it a word.
  if (caption.empty()) return;
  if (button.text() != ToQt(caption)) button.setText(ToQt(caption));
  const QString spoken = WithoutAccessKey(caption).trimmed();
  if (!spoken.isEmpty()) button.setAccessibleName(spoken);
}

void ShowGround(QWidget& widget, std::int32_t value) {
  const QColor back = ToColour(value);
  if (!back.isValid() || widget.autoFillBackground()) return;
  QPalette colours = widget.palette();
  // The ground is filled in the role of buttons, the caption is drawn as that of a window.
  colours.setColor(widget.backgroundRole(), back);
  colours.setColor(QPalette::WindowText, ReadableOn(back));
  widget.setPalette(colours);
  widget.setAutoFillBackground(true);
}

}  // namespace

QPushButton* MakeButton(FormView& view, CommandButton& control, QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setAutoDefault(false);
  Mirror* mirror = view.Follow(control, button, [&control, button] {
    ShowCaption(*button, control.Caption);
    button->setDefault(control.Default);
    if (!control.PictureKey.Get().empty() && button->icon().isNull()) {
      button->setIcon(ArtworkIcon("folders/" + control.PictureKey.Get()));
      button->setIconSize({24, 24});
    }
  });
  QObject::connect(button, &QPushButton::clicked, mirror,
                   [&view, &control, mirror] { view.Serve([&] { control.UserClick(); }, mirror); });
  return button;
}

QCheckBox* MakeCheckBox(FormView& view, CheckBox& control, QWidget* parent) {
  auto* box = new QCheckBox(parent);
  Mirror* mirror = view.Follow(control, box, [&control, box] {
    ShowCaption(*box, control.Caption);
    // The user's clicks go between the two plain states; only the program sets the third.
    box->setTristate(control.Value == 2);
    box->setCheckState(control.Value == 2   ? Qt::PartiallyChecked
                       : control.Value == 1 ? Qt::Checked
                                            : Qt::Unchecked);
    ShowGround(*box, control.BackColor);
  });
  QObject::connect(box, &QCheckBox::clicked, mirror,
                   [&view, &control, mirror] { view.Serve([&] { control.UserClick(); }, mirror); });
  return box;
}

QRadioButton* MakeOptionButton(FormView& view, OptionButton& control, QWidget* parent) {
  auto* button = new QRadioButton(parent);
  // The control clears its group itself, and its group need not share a parent widget.
  button->setAutoExclusive(false);
  SetAccessibleRole(*button, QAccessible::RadioButton);
  Mirror* mirror = view.Follow(control, button, [&control, button] {
    ShowCaption(*button, control.Caption);
    button->setChecked(control.Value);
  });
  QObject::connect(button, &QRadioButton::clicked, mirror,
                   [&view, &control, mirror] { view.Serve([&] { control.UserClick(); }, mirror); });
  return button;
}

}  // namespace lumidex
