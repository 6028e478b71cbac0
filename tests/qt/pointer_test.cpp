// The mouse on forms, labels and picture boxes.

#include <QLabel>
#include <QMouseEvent>

#include "controls/control_array.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "platform/qt/views/placed_view.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct MouseForm : Form {
  explicit MouseForm(Platform& platform) : Form(platform, "frmMouse", "Mouse") {
    Width = 6000;
    Height = 4500;
    label.Move(0, 0, 1500, 300);
    box.Move(1500, 0, 1500, 1500);
    silent.Move(0, 600, 1500, 300);
    KeepDesign();
  }
  Label label{*this, "label", "A label"};
  PictureBox box{*this, "box"};
  Label silent{*this, "silent", "Nobody listens"};
};

struct PointerTest : testing::Test {
  ~PointerTest() override { world.views.Close(); }

  template <class Any>
  void ListenTo(Any& pointed) {
    const auto mouse = [this](std::string what) {
      return [this, what](int button, int shift, float x, float y) {
        told += what + std::to_string(button) + std::to_string(shift) + " ";
        place = QPointF(double{x}, double{y});
      };
    };
    pointed.OnClick = [this] { told += "click "; };
    pointed.OnDblClick = [this] { told += "double "; };
    pointed.OnMouseDown = mouse("down");
    pointed.OnMouseMove = mouse("move");
    pointed.OnMouseUp = mouse("up");
  }
  void Show() {
    world.views.Attach(form);
    form.Show();
    Settle();
    told.clear();
  }
  FormView& View() { return *world.views.ViewOf(form); }
  QWidget* Shown(Control& control) { return View().WidgetOf(control); }
  QPoint At(int x, int y) { return {world.views.GetUnits().Pixels(x), world.views.GetUnits().Pixels(y)}; }

  QtWorld world{[](FormViews& views, Form& shown) -> std::unique_ptr<FormView> {
    return std::make_unique<PlacedView>(views, shown);
  }};
  MouseForm form{world.platform};
  std::string told;
  QPointF place;
};

TEST_F(PointerTest, A_click_on_a_label_comes_behind_its_steps) {
  ListenTo(form.label);
  Show();
  QTest::mouseClick(Shown(form.label), Qt::LeftButton, Qt::ControlModifier, At(150, 75));
  EXPECT_EQ(told, "down12 up12 click ");
  EXPECT_NEAR(place.x(), 150, 15);
  EXPECT_NEAR(place.y(), 75, 15);
}

TEST_F(PointerTest, A_double_click_is_told_behind_the_click_and_is_no_second_one) {
  ListenTo(form.box);
  Show();
  QWidget* inside = View().InsideOf(form.box);
  QTest::mouseClick(inside, Qt::LeftButton);
  QTest::mouseDClick(inside, Qt::LeftButton);
  QTest::mouseRelease(inside, Qt::LeftButton);
  EXPECT_EQ(told, "down10 up10 click double up10 ");
}

TEST_F(PointerTest, The_right_button_goes_down_and_up_without_a_click) {
  ListenTo(form.box);
  Show();
  QTest::mouseClick(View().InsideOf(form.box), Qt::RightButton);
  EXPECT_EQ(told, "down20 up20 ");
}

TEST_F(PointerTest, A_button_let_go_elsewhere_is_no_click) {
  ListenTo(form.label);
  Show();
  QTest::mousePress(Shown(form.label), Qt::LeftButton, {}, {2, 2});
  QTest::mouseRelease(Shown(form.label), Qt::LeftButton, {}, {-50, -50});
  EXPECT_EQ(told, "down10 up10 ");
}

TEST_F(PointerTest, A_form_hears_the_mouse_from_its_inner_corner_and_through_what_does_not_listen) {
  ListenTo(form);
  Show();
  QTest::mouseClick(Shown(form.silent), Qt::LeftButton, {}, At(300, 150));
  EXPECT_EQ(told, "down10 up10 click ");
  EXPECT_NEAR(place.x(), 300, 20);
  EXPECT_NEAR(place.y(), 600 + 150, 20);
}

TEST_F(PointerTest, A_label_that_listens_keeps_the_click_from_the_form) {
  int clicks = 0;
  ListenTo(form);
  form.label.OnClick = [&] { ++clicks; };
  Show();
  QTest::mouseClick(Shown(form.label), Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(told, "");
}

TEST_F(PointerTest, The_mouse_is_followed_without_a_button) {
  ListenTo(form.label);
  Show();
  QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), Shown(form.label)->mapToGlobal(QPointF(5, 5)),
                   Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Shown(form.label), &move);
  EXPECT_EQ(told, "move00 ");
  EXPECT_TRUE(Shown(form.label)->hasMouseTracking());
}

}  // namespace
}  // namespace lumidex
