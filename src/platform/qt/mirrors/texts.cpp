// Labels, text boxes, frames.

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

void ShowColours(QLabel& label, std::int32_t fore, std::int32_t back) {
  const QColor text = ToColour(fore);
  const QColor ground = ToColour(back);
  if (!text.isValid() && !ground.isValid()) return;
  QPalette colours = label.palette();
  if (ground.isValid()) {
    colours.setColor(QPalette::Window, ground);
    colours.setColor(QPalette::WindowText, ReadableOn(ground));
    label.setAutoFillBackground(true);
  }
  if (text.isValid()) colours.setColor(QPalette::WindowText, text);
  label.setPalette(colours);
}

}  // namespace

QLabel* MakeLabel(FormView& view, Label& control, QWidget* parent, QWidget* buddy) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(buddy);
  Mirror* mirror = view.Follow(control, label, [&control, label, buddy] {
    // Without a buddy Qt shows the mark itself.
    const QString text = buddy ? CaptionToQt(control.Caption.Get()) : WithoutAccessKey(control.Caption.Get());
    if (label->text() != text) {
      label->setText(text);
      label->setAccessibleName(WithoutAccessKey(control.Caption.Get()));
    }
    ShowColours(*label, control.ForeColor, control.BackColor);
  });
  if (buddy) {
    QString name = WithoutAccessKey(control.Caption.Get());
    if (name.endsWith(u':')) name.chop(1);
    buddy->setAccessibleName(name);
  }
  new PointerWatch(view, control, label, mirror);
  return label;
}

QWidget* MakeTextBox(FormView& view, TextBox& control, QWidget* parent) {
  if (control.MultiLine) {
    auto* edit = new QPlainTextEdit(parent);
    edit->setTabChangesFocus(true);
    Mirror* mirror = view.Follow(control, edit, [&control, edit] {
      const QSignalBlocker quiet(edit);
      if (edit->toPlainText() != ToQt(control.Text.Get())) edit->setPlainText(ToQt(control.Text.Get()));
      edit->setReadOnly(control.Locked);
    });
    QObject::connect(edit, &QPlainTextEdit::textChanged, mirror, [&view, &control, mirror, edit] {
      view.Serve([&] { control.UserType(FromQt(edit->toPlainText())); }, mirror);
    });
    return edit;
  }
  auto* edit = new QLineEdit(parent);
  Mirror* mirror = view.Follow(control, edit, [&control, edit] {
    if (edit->text() != ToQt(control.Text.Get())) edit->setText(ToQt(control.Text.Get()));
    edit->setReadOnly(control.Locked);
    if (control.MaxLength > 0) edit->setMaxLength(control.MaxLength);
  });
  QObject::connect(edit, &QLineEdit::textEdited, mirror, [&view, &control, mirror](const QString& text) {
    view.Serve([&] { control.UserType(FromQt(text)); }, mirror);
  });
  return edit;
}

QWidget* MakeFrame(FormView& view, Frame& control, QWidget* parent) {
  auto* frame = new QGroupBox(parent);
  view.Follow(control, frame, [&control, frame] {
    if (frame->title() != ToQt(control.Caption.Get())) frame->setTitle(ToQt(control.Caption.Get()));
  });
  return frame;
}

}  // namespace lumidex
