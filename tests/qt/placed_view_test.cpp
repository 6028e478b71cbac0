#include "platform/qt/views/placed_view.h"

#include <QLabel>
#include <QMenuBar>
#include <QPointer>

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct CellForm : Form {
  explicit CellForm(Platform& platform) : Form(platform, "frmCells", "Cells") {
    Width = 8000;
    Height = 6000;
    Scale = ScaleMode::Pixels;
    cell(0).Move(10, 20, 81, 81);
    cell(0).Visible = false;
    box.Move(100, 100, 200, 100);
    inner.Container = &box;
    inner.Move(300, 150, 600, 300);
    button.Move(0, 300, 80, 20);
    KeepDesign();
  }
  ControlArray<ImageBox> cell{*this, "cell", 0, 0};
  // Stands in what is declared after it.
  Label inner{*this, "inner", "inside"};
  PictureBox box{*this, "box"};
  CommandButton button{*this, "button", "Button"};
};

struct PlacedViewTest : testing::Test {
  PlacedViewTest() {
    world.views.Attach(form);
    form.Show();
    Settle();
  }
  ~PlacedViewTest() override { world.views.Close(); }

  QWidget* Shown(Control& control) { return world.views.ViewOf(form)->WidgetOf(control); }
  QRect Place(int left, int top, int width, int height) {
    const Units& units = world.views.GetUnits();
    const auto pixels = [&](int length) { return units.Pixels(double{twipsPerPixel} * length); };
    return {QPoint(pixels(left), pixels(top)), QPoint(pixels(left + width) - 1, pixels(top + height) - 1)};
  }

  QtWorld world{[](FormViews& views, Form& shown) -> std::unique_ptr<FormView> {
    return std::make_unique<PlacedView>(views, shown);
  }};
  CellForm form{world.platform};
};

TEST_F(PlacedViewTest, Controls_stand_where_they_are_placed_in_the_unit_of_the_form) {
  EXPECT_EQ(Shown(form.button)->geometry(), Place(0, 300, 80, 20));
  EXPECT_TRUE(Shown(form.cell(0))->isHidden());
}

TEST_F(PlacedViewTest, A_control_stands_in_its_container_in_the_containers_unit) {
  QWidget* inside = world.views.ViewOf(form)->InsideOf(form.box);
  EXPECT_EQ(Shown(form.inner)->parentWidget(), inside);
  EXPECT_EQ(inside->parentWidget(), Shown(form.box));
  EXPECT_EQ(Shown(form.inner)->geometry(), Place(20, 10, 40, 20));
}

TEST_F(PlacedViewTest, An_element_that_comes_gets_a_widget_at_its_place) {
  ImageBox& cell = form.cell.Load(1);
  cell.Left = 120;
  cell.Visible = true;
  Settle();
  ASSERT_NE(Shown(cell), nullptr);
  EXPECT_TRUE(Shown(cell)->isVisible());
  EXPECT_EQ(Shown(cell)->geometry(), Place(120, 20, 81, 81));
  EXPECT_EQ(Shown(cell)->objectName(), "cell(1)");
}

TEST_F(PlacedViewTest, The_widget_goes_with_its_control) {
  form.cell.Load(1).Visible = true;
  Settle();
  const QPointer<QWidget> widget = Shown(form.cell(1));
  form.cell(1).Left = 200;  // waits to be pushed
  form.cell.Unload(1);
  EXPECT_TRUE(widget->isHidden());
  Settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(widget.isNull());
}

TEST_F(PlacedViewTest, A_click_may_end_the_control_that_it_falls_on) {
  form.cell.Wire(
      [this](ImageBox& cell, int index) { cell.OnClick = [this, index] { form.cell.Unload(index); }; });
  form.cell.Load(1).Visible = true;
  Settle();
  QTest::mouseClick(Shown(form.cell(1)), Qt::LeftButton);
  EXPECT_FALSE(form.cell.Has(1));
  Settle();
}

TEST_F(PlacedViewTest, A_double_click_on_an_element_may_unload_the_whole_form) {
  form.cell.Wire([this](ImageBox& cell, int) {
    cell.OnClick = [] {};
    cell.OnDblClick = [this] { form.Unload(); };
  });
  form.cell.Load(1).Visible = true;
  Settle();
  QTest::mouseDClick(Shown(form.cell(1)), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.cell.Count(), 1);
}

TEST_F(PlacedViewTest, What_is_brought_to_the_front_lies_above_its_neighbours) {
  for (int index : {1, 2}) {
    form.cell.Load(index).Visible = true;
  }
  form.cell(1).BringToFront();
  Settle();
  QWidget* parent = Shown(form.cell(1))->parentWidget();
  EXPECT_EQ(parent->childAt(Shown(form.cell(2))->geometry().center()), Shown(form.cell(1)));
  form.cell(2).BringToFront();
  Settle();
  EXPECT_EQ(parent->childAt(Shown(form.cell(2))->geometry().center()), Shown(form.cell(2)));
}

TEST_F(PlacedViewTest, A_form_without_menus_has_no_menu_bar) {
  EXPECT_EQ(world.views.ViewOf(form)->findChild<QMenuBar*>(), nullptr);
}

}  // namespace
}  // namespace lumidex
