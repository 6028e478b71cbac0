// The main window: its size, its menus, its bars, and the picture in it; and that every other one comes.

#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>

#include "forms/SelectPictureDirectoryForm.h"
#include "forms/frmSystemTray.h"
#include "forms/frmlocatefiles.h"
#include "pictures/pixels.h"
#include "qt/main_window.h"

namespace lumidex {
namespace {

TEST_F(MainWindowTest, The_outer_size_counts_a_nominal_frame) {
  const double factor = world.views.GetUnits().factor;
  window.Width = 9600;
  window.Height = 9000;
  Settle();
  EXPECT_EQ(View().width(), std::lround((9600 / 15.0 - 8) * factor));
  EXPECT_EQ(View().height(), std::lround((9000 / 15.0 - 27) * factor));
}

TEST_F(MainWindowTest, Dragging_the_frame_resizes_the_form) {
  int resizes = 0;
  window.OnResize = [&] { ++resizes; };
  const int width = View().width() + 30;
  View().resize(width, View().height());
  Settle();
  EXPECT_EQ(resizes, 1);
  EXPECT_NEAR(window.Width, (width / world.views.GetUnits().factor + 8) * 15, 0.01);
  // To the pixel that the design comes to in this font.
  EXPECT_NEAR(window.Height, 11100, 15);
}

TEST_F(MainWindowTest, A_change_of_the_form_does_not_undo_what_the_window_manager_did) {
  View().showMaximized();
  window.Caption = "Another title";
  View().Pushes().Flush();
  EXPECT_TRUE(View().isMaximized());
  Settle();
  EXPECT_EQ(window.State.Get(), WindowState::Maximized);
}

TEST_F(MainWindowTest, A_form_that_refuses_to_get_small_snaps_the_frame_back) {
  window.OnResize = [&] {
    if (window.Width < 9500) window.Width = 9500;
  };
  View().resize(300, View().height());
  Settle();
  EXPECT_EQ(window.Width.Get(), 9500.0F);
  EXPECT_EQ(View().width(), std::lround((9500 / 15.0 - 8) * world.views.GetUnits().factor));
}

TEST_F(MainWindowTest, A_window_begins_no_larger_than_the_screen) {
  window.Hide();
  window.Width = 90000;
  window.Show();
  Settle();
  EXPECT_LE(View().width(), View().screen()->availableSize().width());
  EXPECT_LT(window.Width.Get(), 90000.0F);
}

TEST_F(MainWindowTest, Controls_stand_at_their_positions) {
  window.cmdUp.Top = 6000;
  Settle();
  const Units& units = world.views.GetUnits();
  const auto& button = WidgetOf<QPushButton>(world, window.cmdUp);
  EXPECT_EQ(button.y(), units.Pixels(6000));
  EXPECT_EQ(button.x(), units.Pixels(720));
  EXPECT_EQ(button.geometry().right() + 1, units.Pixels(720 + 1290));
}

TEST_F(MainWindowTest, No_caption_of_a_button_is_cut_off) {
  for (Control* control : window.Controls()) {
    auto* button = dynamic_cast<QPushButton*>(View().WidgetOf(*control));
    if (!button) continue;
    const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    EXPECT_GE(button->width(), text.width() + 4) << control->Name();
    EXPECT_GE(button->height(), button->fontMetrics().ascent() + button->fontMetrics().descent() + 2)
        << control->Name();
  }
}

TEST_F(MainWindowTest, Menu_items_have_their_captions_shortcuts_and_marks) {
  EXPECT_EQ(Action("mnuFileDirectory").text(), "Select Image(s) &Directory");
  EXPECT_EQ(Action("mnuFileDirectory").shortcut(), QKeySequence("Ctrl+D"));
  EXPECT_TRUE(Action("mnuEditToolBar").isChecked());
  EXPECT_TRUE(Action("mnufiledivider1").isSeparator());
  EXPECT_FALSE(Action("mnuToolsOptions").isVisible());
  EXPECT_FALSE(Action("mnuPictureNext").isEnabled());
  QStringList titles;
  for (const QAction* action : View().findChild<QMenuBar*>()->actions()) {
    if (action->isVisible()) titles << action->text();
  }
  EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "&View", "&Picture", "&Slide Show", "&Tools", "&Help"}));
}

TEST_F(MainWindowTest, Choosing_a_menu_item_is_the_users_click) {
  int clicks = 0;
  window.mnuFileLoad.OnClick = [&] { ++clicks; };
  Action("mnuFileLoad").trigger();
  EXPECT_EQ(clicks, 1);
}

TEST_F(MainWindowTest, A_mark_that_the_program_keeps_stays) {
  window.mnuSlideShowForwardOrder.OnClick = [] {};
  Action("mnuSlideShowForwardOrder").trigger();
  EXPECT_TRUE(Action("mnuSlideShowForwardOrder").isChecked());
}

TEST_F(MainWindowTest, A_shortcut_works_only_while_its_menu_is_enabled) {
  int clicks = 0;
  window.mnuPictureNext.OnClick = [&] { ++clicks; };
  View().activateWindow();
  window.mnuPictureNext.Enabled = true;
  window.mnuPicture.Enabled = false;
  Settle();
  QTest::keyClick(&View(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(clicks, 0);
  window.mnuPicture.Enabled = true;
  Settle();
  QTest::keyClick(&View(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MainWindowTest, A_toolbar_button_tells_its_key) {
  std::string key;
  window.Toolbar1.OnButtonClick = [&](const std::string& pressed, int) { key = pressed; };
  window.Toolbar1.SetEnabled(11, true);
  Settle();
  auto* button = View().findChild<QToolButton*>("Next");
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->toolTip(), "Move To Next Picture");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(key, "Next");
  window.Toolbar1.SetVisible(11, false);
  Settle();
  EXPECT_TRUE(button->isHidden());
}

TEST_F(MainWindowTest, Every_toolbar_button_has_its_picture) {
  for (const auto* button : View().findChildren<QToolButton*>()) {
    if (button->objectName().startsWith("qt_")) continue;
    EXPECT_FALSE(button->icon().pixmap(24, 24).isNull()) << button->objectName().toStdString();
  }
}

TEST_F(MainWindowTest, The_toolbar_is_one_stop_of_the_tab_key) {
  View().activateWindow();
  Settle();
  window.Toolbar1.SetEnabled(3, false);
  Settle();
  auto* load = View().findChild<QToolButton*>("Load");
  load->setFocus();
  QTest::keyClick(load, Qt::Key_Right);
  auto* exit = View().findChild<QToolButton*>("Exit");
  EXPECT_TRUE(exit->hasFocus());
  EXPECT_EQ(exit->focusPolicy(), Qt::TabFocus);
  EXPECT_EQ(load->focusPolicy(), Qt::NoFocus);
}

TEST_F(MainWindowTest, Tab_reaches_the_toolbar_whichever_buttons_are_hidden_or_disabled) {
  const auto stops = [this] {
    Settle();
    QStringList keys;
    for (const auto* button : View().findChildren<QToolButton*>()) {
      if (button->focusPolicy() == Qt::TabFocus && !button->isHidden() && button->isEnabled()) {
        keys << button->objectName();
      }
    }
    return keys;
  };
  EXPECT_EQ(stops(), QStringList{"Directory"});
  window.Toolbar1.SetVisible(1, false);
  EXPECT_EQ(stops(), QStringList{"Load"});
  window.Toolbar1.SetVisible(2, false);
  window.Toolbar1.SetEnabled(3, false);
  EXPECT_EQ(stops(), QStringList{"Exit"});
  window.Toolbar1.SetVisible(1, true);
  EXPECT_EQ(stops(), QStringList{"Exit"});
  for (int position = 1; position <= 19; ++position) window.Toolbar1.SetVisible(position, false);
  EXPECT_EQ(stops(), QStringList{});
  window.Toolbar1.SetVisible(19, true);
  EXPECT_EQ(stops(), QStringList{"About"});
}

TEST_F(MainWindowTest, The_toolbar_hides_what_the_window_shows_behind_it) {
  window.Draw({{0, 2000, 0x0000FF}});
  Settle();
  QWidget& bar = WidgetOf<QWidget>(world, window.Toolbar1);
  const QImage shot = View().grab().toImage();
  const QPoint free = bar.mapTo(&View(), QPoint(bar.width() - 3, bar.height() / 2));
  EXPECT_EQ(shot.pixelColor(free), bar.palette().color(QPalette::Window));
}

TEST_F(MainWindowTest, A_unit_that_the_form_counts_in_for_a_moment_moves_nothing) {
  const QPoint label = WidgetOf<QWidget>(world, window.lblCount).pos();
  const QPoint button = WidgetOf<QWidget>(world, window.cmdUp).pos();
  window.Scale = ScaleMode::Pixels;
  window.lblCount.Caption = "7";
  window.cmdUp.ToolTipText = "a tip";
  Settle();
  window.Scale = ScaleMode::Twips;
  Settle();
  EXPECT_EQ(WidgetOf<QWidget>(world, window.lblCount).pos(), label);
  EXPECT_EQ(WidgetOf<QWidget>(world, window.cmdUp).pos(), button);
}

TEST_F(MainWindowTest, Hiding_a_bar_leaves_the_controls_where_they_are) {
  const int before = WidgetOf<QWidget>(world, window.LstLeft).y();
  window.Toolbar1.Visible = false;
  window.StatusBar1.Visible = false;
  Settle();
  EXPECT_TRUE(WidgetOf<QWidget>(world, window.Toolbar1).isHidden());
  EXPECT_EQ(WidgetOf<QWidget>(world, window.LstLeft).y(), before);
}

TEST_F(MainWindowTest, The_picture_is_painted_at_the_size_of_its_box) {
  const Pixels redPixels = Pixels::Make({40, 30}, PixelFormat::Rgb, 0xFFFF0000);
  window.Image1.Picture = Picture::FromPixels(redPixels, 24);
  window.Image1.Move(10, 20, 100, 50);
  Settle();
  const QImage shot = View().grab().toImage();
  const QWidget& image = WidgetOf<QWidget>(world, window.Image1);
  const QPoint corner = image.mapTo(&View(), QPoint(0, 0));
  EXPECT_EQ(shot.pixelColor(corner), QColor(Qt::red));
  EXPECT_EQ(shot.pixelColor(corner + QPoint(image.width() - 1, image.height() - 1)), QColor(Qt::red));
  EXPECT_NE(shot.pixelColor(corner - QPoint(1, 1)), QColor(Qt::red));
}

TEST_F(MainWindowTest, Transparent_places_are_white) {
  Pixels clear = Pixels::Make({8, 8}, PixelFormat::Argb, 0x00000000);
  window.Image1.Picture = Picture::FromPixels(clear, 32);
  window.Image1.Move(0, 0, 8, 8);
  Settle();
  const QWidget& image = WidgetOf<QWidget>(world, window.Image1);
  const QPoint corner = image.mapTo(&View(), QPoint(2, 2));
  EXPECT_EQ(View().grab().toImage().pixelColor(corner), QColor(Qt::white));
}

TEST_F(MainWindowTest, The_status_bar_hides_what_reaches_below_it) {
  window.Picture1.BackColor = 0x0000FF;  // red
  window.Picture1.Move(0, 0, 2 * window.Width, 2 * window.Height);
  Settle();
  const QWidget& bar = WidgetOf<QWidget>(world, window.StatusBar1);
  const QImage shown = View().grab().toImage();
  const QPoint below = bar.mapTo(&View(), bar.rect().bottomLeft() + QPoint(20, 0));
  EXPECT_EQ(shown.pixelColor(below - QPoint(0, bar.height() + 3)), QColor(Qt::red));
  EXPECT_NE(shown.pixelColor(below), QColor(Qt::red));
}

TEST_F(MainWindowTest, Topmost_windows_stay_so_when_they_are_made_later) {
  world.windows.SetWindowPos(app.frmlocatefiles.hwnd(), HWND_TOPMOST, 0, 0, 0, 0, 3);
  app.frmlocatefiles.Show();
  const auto flags = world.views.ViewOf(app.frmlocatefiles)->windowHandle()->flags();
  EXPECT_TRUE(flags.testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(MainWindowTest, The_form_of_the_notification_area_has_no_window) {
  app.frmSystemTray.Show();
  EXPECT_EQ(world.views.ViewOf(app.frmSystemTray), nullptr);
}

TEST_F(MainWindowTest, Every_window_of_the_program_can_be_shown) {
  for (Form* form : app.Forms()) {
    if (form == &app.frmSystemTray) continue;
    form->Show();
    Settle();
    ASSERT_NE(world.views.ViewOf(*form), nullptr) << form->Name();
    EXPECT_TRUE(world.views.ViewOf(*form)->isVisible()) << form->Name();
    form->Hide();
  }
}

TEST_F(MainWindowTest, The_directory_dialog_is_left_by_escape_and_enter) {
  std::string pressed;
  auto& dialog = app.SelectPictureDirectoryForm;
  dialog.cmdCancel.OnClick = [&] { pressed += "cancel "; };
  dialog.cmdOK.OnClick = [&] { pressed += "ok "; };
  dialog.Show();
  Settle();
  QTest::keyClick(&WidgetOf<QListView>(world, dialog.File1), Qt::Key_Escape);
  dialog.File1.SetFocus();
  QTest::keyClick(&WidgetOf<QListView>(world, dialog.File1), Qt::Key_Return);
  EXPECT_EQ(pressed, "cancel ok ");
}

}  // namespace
}  // namespace lumidex
