// The main window in the hands of a window manager: minimised, maximised, moved.

#include <QResizeEvent>

#include "qt/main_window.h"

namespace lumidex {
namespace {

TEST_F(MainWindowTest, A_maximised_window_stays_where_the_window_manager_put_it) {
  View().move(120, 90);
  Settle();
  View().showMaximized();
  Settle();
  const QRect place = View().geometry();
  window.Caption = "Another title";
  window.LstRight.AddItem("a.bmp");
  Settle();
  EXPECT_TRUE(View().isMaximized());
  EXPECT_EQ(View().geometry(), place);
}

TEST_F(MainWindowTest, A_window_stands_where_its_form_is_put) {
  window.Left = 1500;
  window.Top = 1200;
  Settle();
  EXPECT_EQ(View().pos(), QPoint(world.views.GetUnits().Pixels(1500), world.views.GetUnits().Pixels(1200)));
  View().move(40, 30);
  Settle();
  EXPECT_FLOAT_EQ(window.Left, world.views.GetUnits().Twips(40));
  window.Left = 1500;
  Settle();
  EXPECT_EQ(View().x(), world.views.GetUnits().Pixels(1500));
}

TEST_F(MainWindowTest, A_size_that_is_told_late_is_not_that_of_the_form) {
  const QSize before = View().size();
  View().resize(before + QSize(200, 100));
  Settle();
  const float width = window.Width, height = window.Height;
  QResizeEvent late(before, before);
  QCoreApplication::sendEvent(&View(), &late);
  Settle();
  EXPECT_EQ(window.Width, width);
  EXPECT_EQ(window.Height, height);
}

TEST_F(MainWindowTest, A_window_that_goes_at_once_leaves_the_screen_when_it_has_come_there) {
  window.Hide();
  Settle();
  window.Show();
  window.Hide();
  EXPECT_TRUE(View().isVisible());
  Settle();
  EXPECT_FALSE(View().isVisible());
  EXPECT_FALSE(window.Visible());
}

TEST_F(MainWindowTest, A_window_that_goes_at_once_and_comes_again_stays) {
  window.Hide();
  Settle();
  window.Show();
  window.Hide();
  window.Show();
  Settle();
  EXPECT_TRUE(View().isVisible());
  EXPECT_TRUE(window.Visible());
}

struct MinimisedWindowTest : MainWindowTest {
  MinimisedWindowTest() {
    window.OnResize = [this] {
      if (window.State == WindowState::Minimized) window.Hide();
    };
    window.OnActivate = [this] { ++activations; };
  }
  void Minimise() {
    View().showMinimized();
    Settle();
  }
  int activations = 0;
};

TEST_F(MinimisedWindowTest, It_leaves_the_screen_for_the_notification_area) {
  Minimise();
  EXPECT_FALSE(window.Visible());
  EXPECT_FALSE(View().isVisible());
}

TEST_F(MinimisedWindowTest, Called_back_from_the_notification_area_it_is_not_minimised_any_more) {
  Minimise();
  window.State = WindowState::Normal;
  window.Show();
  Settle();
  EXPECT_TRUE(View().isVisible());
  EXPECT_FALSE(View().isMinimized());
}

TEST_F(MinimisedWindowTest, Called_back_maximised_it_is_restored_to_the_size_it_had) {
  const QSize size = View().size();
  Minimise();
  window.State = WindowState::Maximized;
  window.Show();
  Settle();
  EXPECT_TRUE(View().isMaximized());
  EXPECT_NE(View().size(), size);
  window.State = WindowState::Normal;
  Settle();
  EXPECT_EQ(View().size(), size);
}

TEST_F(MinimisedWindowTest, Hidden_while_it_was_maximised_it_comes_back_in_the_size_it_had_before) {
  const QSize size = View().size();
  View().showMaximized();
  Settle();
  EXPECT_NE(View().size(), size);
  Minimise();
  window.State = WindowState::Normal;
  window.Show();
  Settle();
  EXPECT_FALSE(View().isMaximized());
  EXPECT_EQ(View().size(), size);
}

TEST_F(MinimisedWindowTest, Its_form_knows_the_size_of_the_screen_when_it_comes_back_maximised) {
  Minimise();
  float asShown = 0;
  window.OnResize = [&] { asShown = window.Height; };
  window.State = WindowState::Maximized;
  window.Show();
  window.OnResize = nullptr;
  Settle();
  // But for the frame, which the window manager adds.
  EXPECT_NEAR(asShown, window.Height, world.views.GetUnits().Twips(frameAllowance.height()));
}

TEST_F(MinimisedWindowTest,
       In_the_notification_area_it_stays_minimised_whatever_the_window_manager_makes_of_it) {
  Minimise();
  View().setWindowState(Qt::WindowNoState);
  QResizeEvent event(View().size(), QSize(1, 1));
  QCoreApplication::sendEvent(&View(), &event);
  EXPECT_EQ(window.State.Get(), WindowState::Minimized);
}

TEST_F(MinimisedWindowTest, It_stays_in_the_task_bar_while_there_is_no_icon_in_a_notification_area) {
  world.headless.tray.isAvailable = false;
  Minimise();
  EXPECT_FALSE(window.Visible());
  EXPECT_TRUE(View().isVisible());
  EXPECT_TRUE(View().isMinimized());
}

TEST_F(MinimisedWindowTest, Called_back_from_the_task_bar_its_form_is_shown_again) {
  world.headless.tray.isAvailable = false;
  Minimise();
  View().showNormal();
  Settle();
  EXPECT_TRUE(window.Visible());
  EXPECT_TRUE(View().isVisible());
  EXPECT_EQ(window.State.Get(), WindowState::Normal);
  EXPECT_EQ(activations, 1);
  Minimise();
  View().showMaximized();
  Settle();
  EXPECT_TRUE(window.Visible());
  EXPECT_EQ(window.State.Get(), WindowState::Maximized);
}

TEST_F(MinimisedWindowTest, The_program_can_bring_it_back_from_the_task_bar) {
  world.headless.tray.isAvailable = false;
  Minimise();
  window.State = WindowState::Normal;
  window.Show();
  Settle();
  EXPECT_TRUE(View().isVisible());
  EXPECT_FALSE(View().isMinimized());
  EXPECT_EQ(activations, 1);
}

TEST_F(MinimisedWindowTest, An_unloaded_form_leaves_nothing_in_the_task_bar) {
  world.headless.tray.isAvailable = false;
  Minimise();
  const QPointer<QWidget> view = &View();
  window.Unload();
  EXPECT_TRUE(view.isNull() || !view->isVisible());
}

}  // namespace
}  // namespace lumidex
