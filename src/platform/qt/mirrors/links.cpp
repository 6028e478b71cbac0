// Labels that lead to addresses.

#include <QEnterEvent>
#include <QKeyEvent>
#include <QLabel>
#include <cstdlib>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

// The colour, as much lighter or darker as it takes to be read on `background`: some desktops leave links
// dark on their dark windows.
QColor ReadableAs(const QColor& colour, const QColor& background) {
  constexpr int leastContrast = 90, steps = 8;
  const QColor end = ReadableOn(background);
  for (int step = 0; step < steps; ++step) {
    const auto between = [step](int from, int to) { return from + (to - from) * step / steps; };
    const QColor mixed(between(colour.red(), end.red()), between(colour.green(), end.green()),
                       between(colour.blue(), end.blue()));
    if (std::abs(qGray(mixed.rgb()) - qGray(background.rgb())) >= leastContrast) return mixed;
  }
  return end;
}

// Looks like a link of the desktop, takes another colour under the mouse, and is a link for the keyboard too.
class LinkLabel final : public QLabel {
 public:
  LinkLabel(FormView& view, HyperLink& control, QWidget* parent)
      : QLabel(parent), view_(view), control_(control) {
    setTextFormat(Qt::PlainText);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    ShowColour(false);
  }

 protected:
  void enterEvent(QEnterEvent*) override { ShowColour(true); }
  void leaveEvent(QEvent*) override { ShowColour(false); }
  void keyPressEvent(QKeyEvent* event) override {
    const bool follows = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return;
    if (!follows) return QLabel::keyPressEvent(event);
    view_.Serve([this] { control_.UserClick(); });
  }

 private:
  void ShowColour(bool hovered) {
    QPalette colours = palette();
    const QColor colour = hovered ? ToColour(control_.HoverColor) : colours.color(QPalette::Link);
    colours.setColor(QPalette::WindowText, ReadableAs(colour, colours.color(QPalette::Window)));
    setPalette(colours);
  }

  FormView& view_;
  HyperLink& control_;
};

}  // namespace

QLabel* MakeLink(FormView& view, HyperLink& control, QWidget* parent) {
  auto* label = new LinkLabel(view, control, parent);
  Mirror* mirror =
      view.Follow(control, label, [&control, label] { label->setText(ToQt(control.Caption.Get())); });
  new PointerWatch(view, control, label, mirror);
  return label;
}

}  // namespace lumidex
