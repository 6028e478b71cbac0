#include "platform/qt/views/placed_view.h"

#include <QLabel>
#include <QMenuBar>
#include <QPointer>

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/tab_strip.h"
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

TEST_F(PlacedViewTest, A_unit_that_the_form_measures_in_for_a_while_moves_nothing) {
  form.Scale = ScaleMode::Twips;
  form.button.Left = 10;
  Settle();
  EXPECT_EQ(Shown(form.button)->geometry(), Place(10, 300, 80, 20));
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

// As a viewer's window: bars at both ends, menus, pages, and the whole screen when it wants it.
struct ViewerForm : Form {
  explicit ViewerForm(Platform& platform) : Form(platform, "frmViewer", "Viewer") {
    Width = 6000;
    Height = 4500;
    tabs.Move(600, 600, 3000, 1500);
    for (Label* label : {&first, &second}) {
      label->Container = &tabs;
      label->Move(150, 600, 600, 300);
    }
    second.ContainerPage = 1;
    KeepDesign();
  }
  Toolbar bar{*this, "bar", {{"exit", "Exit", "", true, true, "Exit"}}};
  StatusBar status{*this, "status", {{"", PanelStyle::Text, "text", "", ""}}};
  TabStrip tabs{*this, "tabs", {"One", "Two"}};
  Label first{*this, "first", "on the first page"};
  Label second{*this, "second", "on the second page"};
  MenuItem menu{*this, "menu", nullptr, "&Menu"};
  MenuItem item{*this, "item", &menu, "&Item", Shortcut::FunctionKey(5)};
};

struct ViewerTest : testing::Test {
  ViewerTest() { world.views.Attach(form); }
  ~ViewerTest() override { world.views.Close(); }
  void Show() {
    form.Show();
    Settle();
  }
  FormView& View() { return *world.views.ViewOf(form); }
  QWidget* Shown(Control& control) { return View().WidgetOf(control); }

  QtWorld world{[](FormViews& views, Form& shown) -> std::unique_ptr<FormView> {
    return std::make_unique<PlacedView>(views, shown);
  }};
  ViewerForm form{world.platform};
};

TEST_F(ViewerTest, Bars_lie_at_the_ends_of_the_inside_and_tell_how_high_they_are) {
  Show();
  const QWidget* inside = Shown(form.bar)->parentWidget();
  EXPECT_EQ(Shown(form.bar)->geometry().topLeft(), QPoint(0, 0));
  EXPECT_EQ(Shown(form.status)->geometry().bottomRight(), inside->rect().bottomRight());
  EXPECT_EQ(world.views.GetUnits().Pixels(form.bar.Height), Shown(form.bar)->height());
  EXPECT_EQ(world.views.GetUnits().Pixels(form.status.Top), Shown(form.status)->y());
}

TEST_F(ViewerTest, The_inner_size_of_the_form_is_that_of_the_window_below_the_menus) {
  Show();
  const QSize inside = Shown(form.bar)->parentWidget()->size();
  EXPECT_NEAR(world.views.GetUnits().Pixels(form.ScaleWidth()), inside.width(), 1);
  EXPECT_NEAR(world.views.GetUnits().Pixels(form.ScaleHeight()), inside.height(), 1);
}

TEST_F(ViewerTest, Without_a_menu_to_show_the_inside_grows_and_the_form_hears_it) {
  Show();
  const float before = form.ScaleHeight();
  int resizes = 0;
  form.OnResize = [&] { ++resizes; };
  form.menu.Visible = false;
  Settle();
  EXPECT_TRUE(View().findChild<QMenuBar*>()->isHidden());
  Settle();  // laid out in the second turn
  EXPECT_GT(form.ScaleHeight(), before);
  EXPECT_EQ(resizes, 1);
  form.menu.Visible = true;
  Settle();
  Settle();
  EXPECT_EQ(form.ScaleHeight(), before);
  EXPECT_EQ(resizes, 2);
}

TEST_F(ViewerTest, A_function_key_chooses_its_item_also_while_the_menus_are_hidden) {
  int chosen = 0;
  form.item.OnClick = [&] { ++chosen; };
  Show();
  View().activateWindow();
  Settle();
  QTest::keyClick(&View(), Qt::Key_F5);
  EXPECT_EQ(chosen, 1);
  form.menu.Visible = false;
  Settle();
  QTest::keyClick(&View(), Qt::Key_F5);
  EXPECT_EQ(chosen, 2);
}

TEST_F(ViewerTest, What_stands_on_a_page_is_seen_with_it) {
  Show();
  EXPECT_TRUE(Shown(form.first)->isVisible());
  EXPECT_FALSE(Shown(form.second)->isVisible());
  // Places count from the corner of the tabs.
  const QPoint corner = Shown(form.first)->mapTo(Shown(form.tabs), QPoint(0, 0));
  EXPECT_EQ(corner, QPoint(world.views.GetUnits().Pixels(150), world.views.GetUnits().Pixels(600)));
  form.tabs.Tab = 1;
  Settle();
  EXPECT_FALSE(Shown(form.first)->isVisible());
  EXPECT_TRUE(Shown(form.second)->isVisible());
}

TEST_F(ViewerTest, A_maximised_form_without_a_caption_covers_the_screen_and_comes_back) {
  form.State = WindowState::Maximized;
  Show();
  EXPECT_FALSE(View().isFullScreen());
  form.Caption = "";
  Settle();
  EXPECT_TRUE(View().isFullScreen());
  EXPECT_EQ(form.State.Get(), WindowState::Maximized);
  EXPECT_NEAR(form.ScaleWidth(), world.windows.ScreenWidth(), 15);
  form.Caption = "Viewer";
  Settle();
  EXPECT_FALSE(View().isFullScreen());
  EXPECT_EQ(form.State.Get(), WindowState::Maximized);
}

TEST_F(ViewerTest, A_maximised_form_knows_about_its_size_when_it_is_activated) {
  float width = 0;
  form.State = WindowState::Maximized;
  form.OnActivate = [&] { width = form.ScaleWidth(); };
  Show();
  EXPECT_GT(width, world.windows.ScreenWidth() * 0.9F);
}

TEST_F(ViewerTest, A_form_without_a_border_has_no_frame) {
  form.Border = BorderStyle::None;
  Show();
  EXPECT_TRUE(View().windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(View().width(), world.views.GetUnits().Pixels(6000));
}

TEST_F(ViewerTest, A_form_with_a_fixed_border_keeps_its_size) {
  form.Border = BorderStyle::FixedSingle;
  Show();
  EXPECT_EQ(View().minimumSize(), View().maximumSize());
  form.Width = 7500;
  Settle();
  EXPECT_EQ(View().minimumSize(), View().maximumSize());
  EXPECT_EQ(View().width(), world.views.GetUnits().Pixels(7500 - 8 * 15));
}

TEST_F(PlacedViewTest, A_form_without_menus_has_no_menu_bar) {
  EXPECT_EQ(world.views.ViewOf(form)->findChild<QMenuBar*>(), nullptr);
}

}  // namespace
}  // namespace lumidex
