// Sliders, up-downs, scroll bars, progress bars.

#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

template <class Widget>
Widget* FollowRange(FormView& view, RangeControl& control, Widget* widget) {
  Mirror* mirror = view.Follow(control, widget, [&control, widget] {
    const QSignalBlocker quiet(widget);
    const auto [low, high] = std::minmax(control.Min.Get(), control.Max.Get());
    widget->setRange(low, high);
    if constexpr (requires { widget->setInvertedAppearance(true); }) {
      widget->setInvertedAppearance(control.Min > control.Max);
    }
    widget->setSingleStep(control.SmallChange);
    if constexpr (requires { widget->setPageStep(1); }) widget->setPageStep(control.LargeChange);
    widget->setValue(control.Value);
  });
  QObject::connect(widget, &Widget::valueChanged, mirror, [&view, &control, mirror, widget](int value) {
    bool isDragged = false;
    if constexpr (requires { widget->isSliderDown(); }) isDragged = widget->isSliderDown();
    view.Serve([&] { isDragged ? control.UserDrag(value) : control.UserSet(value); }, mirror);
  });
  if constexpr (requires { widget->isSliderDown(); }) {
    QObject::connect(widget, &Widget::sliderReleased, mirror,
                     [&view, &control, mirror] { view.Serve([&] { control.UserDrop(); }, mirror); });
  }
  return widget;
}

}  // namespace

QWidget* MakeSlider(FormView& view, Slider& control, QWidget* parent) {
  auto* slider = new QSlider(Qt::Horizontal, parent);
  slider->setTickPosition(QSlider::TicksBelow);
  slider->setTickInterval(control.TickFrequency);
  return FollowRange(view, control, slider);
}

QWidget* MakeUpDown(FormView& view, UpDown& control, QWidget* parent) {
  return FollowRange(view, control, new QSpinBox(parent));
}

QWidget* MakeScrollBar(FormView& view, ScrollBar& control, QWidget* parent) {
  auto* bar = new QScrollBar(control.IsUpright() ? Qt::Vertical : Qt::Horizontal, parent);
  bar->setFocusPolicy(Qt::TabFocus);
  return FollowRange(view, control, bar);
}

QWidget* MakeProgressBar(FormView& view, ProgressBar& control, QWidget* parent) {
  auto* bar = new QProgressBar(parent);
  view.Follow(control, bar, [&control, bar] {
    // It would paint the window at once by itself, before the mirrors behind it have had their turn.
    bar->setUpdatesEnabled(false);
    bar->setRange(control.Min, control.Max);
    bar->setValue(control.Value);
    bar->setUpdatesEnabled(true);
  });
  return bar;
}

}  // namespace lumidex
