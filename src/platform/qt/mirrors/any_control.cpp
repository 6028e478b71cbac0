// The widget for a control whose kind is only known at run time, and its place.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <cmath>

#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

template <class Kind, class Make>
bool Try(Control& control, QWidget*& widget, Make make) {
  auto* known = dynamic_cast<Kind*>(&control);
  if (known) widget = make(*known);
  return known != nullptr;
}

}  // namespace

QWidget* MakeWidget(FormView& view, Control& control, QWidget* parent) {
  QWidget* made = nullptr;
  Try<CommandButton>(control, made, [&](auto& known) { return MakeButton(view, known, parent); }) ||
      Try<CheckBox>(control, made, [&](auto& known) { return MakeCheckBox(view, known, parent); }) ||
      Try<OptionButton>(control, made, [&](auto& known) { return MakeOptionButton(view, known, parent); }) ||
      Try<Label>(control, made, [&](auto& known) { return MakeLabel(view, known, parent); }) ||
      Try<HyperLink>(control, made, [&](auto& known) { return MakeLink(view, known, parent); }) ||
      Try<TextBox>(control, made, [&](auto& known) { return MakeTextBox(view, known, parent); }) ||
      Try<Frame>(control, made, [&](auto& known) { return MakeFrame(view, known, parent); }) ||
      Try<ListBox>(control, made, [&](auto& known) { return MakeListBox(view, known, parent); }) ||
      Try<ComboBox>(control, made, [&](auto& known) { return MakeComboBox(view, known, parent); }) ||
      Try<DriveList>(control, made, [&](auto& known) { return MakeDriveList(view, known, parent); }) ||
      Try<DirList>(control, made, [&](auto& known) { return MakeDirList(view, known, parent); }) ||
      Try<FileList>(control, made, [&](auto& known) { return MakeFileList(view, known, parent); }) ||
      Try<Slider>(control, made, [&](auto& known) { return MakeSlider(view, known, parent); }) ||
      Try<UpDown>(control, made, [&](auto& known) { return MakeUpDown(view, known, parent); }) ||
      Try<ScrollBar>(control, made, [&](auto& known) { return MakeScrollBar(view, known, parent); }) ||
      Try<ProgressBar>(control, made, [&](auto& known) { return MakeProgressBar(view, known, parent); }) ||
      Try<TabStrip>(control, made, [&](auto& known) { return MakeTabs(view, known, parent); }) ||
      Try<Grid>(control, made, [&](auto& known) { return MakeGrid(view, known, parent); }) ||
      Try<Animation>(control, made, [&](auto& known) { return MakeAnimation(view, known, parent); }) ||
      Try<Gvbox>(control, made, [&](auto& known) { return MakeImageControl(view, known, parent); }) ||
      Try<ImageBox>(control, made, [&](auto& known) { return MakeImage(view, known, parent); }) ||
      Try<PictureBox>(control, made, [&](auto& known) { return MakePictureBox(view, known, parent); }) ||
      Try<WebBrowser>(control, made, [&](auto& known) { return MakeWebBrowser(view, known, parent); }) ||
      Try<Toolbar>(control, made, [&](auto& known) { return MakeToolbar(view, known, parent); }) ||
      Try<StatusBar>(control, made, [&](auto& known) { return MakeStatusBar(view, known, parent); });
  return made;
}

QRect PlaceOf(const FormView& view, const Control& control) {
  const auto pixels = [&](double length) {
    if (IsMeasuredInScreenPixels(control))
      return static_cast<int>(std::lround(length / view.devicePixelRatioF()));
    return view.GetUnits().Pixels(length * double{control.TwipsPerOuterUnit()});
  };
  // Both edges are rounded, not the length, so that neighbours meet without gaps.
  const int left = pixels(double{control.Left});
  const int top = pixels(double{control.Top});
  return {left, top, pixels(double{control.Left} + double{control.Width}) - left,
          pixels(double{control.Top} + double{control.Height}) - top};
}

bool IsMeasuredInScreenPixels(const Control& control) {
  const Control* container = control.Container;
  return container && container->InnerScale() == ScaleMode::Pixels;
}

Mirror* FollowPlace(FormView& view, Control& control, QWidget* widget,
                    std::function<void(const QRect& place)> take) {
  return new Mirror(view.Pushes(), control, widget,
                    [&view, &control, take = std::move(take)] { take(PlaceOf(view, control)); });
}

Mirror* FollowGeometry(FormView& view, Control& control, QWidget* widget) {
  return FollowPlace(view, control, widget, [widget](const QRect& place) {
    if (widget->geometry() != place) widget->setGeometry(place);
  });
}

}  // namespace lumidex
