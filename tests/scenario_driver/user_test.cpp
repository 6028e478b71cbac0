// What a user cannot do fails; keys, toolbars, tray and popup menus.

#include "base/run_time_error.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "forms/frmSystemTray.h"
#include "scenario_driver/driver_test.h"

namespace lumidex::scenario {
namespace {

TEST(User, What_is_not_there_is_nothing_to_click) {
  EXPECT_EQ(OutcomeStarted("click cmdNothing"), "1: there is no control \"cmdNothing\" in WPaper2");
  EXPECT_EQ(OutcomeStarted("click cmdUp.Caption"), "1: \"cmdUp.Caption\" is a property");
  EXPECT_EQ(OutcomeStarted("click frmTip.cmdOK"), "1: frmTip is not on the screen");
  EXPECT_EQ(OutcomeStarted("double click cmdUp"), "1: cmdUp is nothing to double-click");
  EXPECT_EQ(OutcomeStarted("show frmPreferences modal\nclick cmdUp"),
            "2: WPaper2 can't be reached while frmPreferences is open");
}

TEST(User, A_picture_box_and_a_label_are_clicked_and_double_clicked) {
  const auto setUp = [](App& app) {
    WPaper2Window& window = app.WPaper2;
    window.Picture1.OnClick = [&] { app.ViewMode = 11; };
    window.Picture1.OnDblClick = [&] { app.ViewMode = 12; };
    window.lblCount.OnClick = [&] { app.ViewMode = 13; };
    window.lblCount.OnDblClick = [&] { app.ViewMode = 14; };
  };
  EXPECT_EQ(OutcomeStarted("click Picture1\nexpect global ViewMode = 11\n"
                           "double click Picture1\nexpect global ViewMode = 12\n"
                           "click lblCount\nexpect global ViewMode = 13\n"
                           "double click lblCount\nexpect global ViewMode = 14\n"
                           "write Picture1.Enabled = False\nclick Picture1\nexpect global ViewMode = 14\n",
                           setUp),
            "passes");
}

TEST(User, Toolbar_buttons_are_pressed_by_position_too) {
  const auto setUp = [](App& app) {
    app.WPaper2.Toolbar1.OnButtonClick = [&app](const std::string& key, int) { app.SearchDirectory = key; };
  };
  EXPECT_EQ(
      OutcomeStarted("press toolbar 2 of WPaper2.Toolbar1\nexpect global SearchDirectory = Load\n"
                     "press toolbar filetype of WPaper2.Toolbar1\nexpect global SearchDirectory = filetype\n"
                     "press toolbar 19\nexpect global SearchDirectory = About\n"
                     "press toolbar 3\nexpect global SearchDirectory = About\n",
                     setUp),
      "passes")
      << "the third is disabled";
  EXPECT_EQ(OutcomeStarted("press toolbar 20"), "1: the toolbar has no button \"20\"");
  EXPECT_EQ(OutcomeStarted("press toolbar Nxt"), "1: the toolbar has no button \"Nxt\"");
  EXPECT_EQ(OutcomeStarted("press toolbar 1 of WPaper2.cmdUp"), "1: cmdUp is nothing to press a button of");
}

TEST(User, Space_presses_buttons_and_boxes) {
  const auto setUp = [](App& app) {
    app.WPaper2.cmdUp.Enabled = true;
    app.WPaper2.cmdUp.OnClick = [&app] { ++app.ViewMode; };
  };
  EXPECT_EQ(OutcomeStarted("write cmdUp.Enabled = True\nwrite global ViewMode = 4\n"
                           "press Space in cmdUp\nexpect global ViewMode = 5\n"
                           "press Enter in cmdUp\nexpect global ViewMode = 6\n"
                           "choose mnuOptionsFileTypes\n"
                           "write frmPreferences.chkFileType(1).Value = 0\n"
                           "press Space in frmPreferences.chkFileType(1)\n"
                           "expect frmPreferences.chkFileType(1).Value = 1\n",
                           setUp),
            "passes");
}

TEST(User, Alt_with_a_letter_presses_what_has_the_access_key) {
  EXPECT_EQ(OutcomeStarted("file C:\\a.bmp picture 4x4\nwrite LstLeft.Enabled = True\n"
                           "choose mnuOptionsFileTypes\npress Alt+O\n"
                           "expect frmPreferences.Visible = False\n"),
            "passes");
  EXPECT_EQ(OutcomeStarted("press Alt+F"), "passes") << "a title opens its menu";
  EXPECT_EQ(OutcomeStarted("press Alt+Y"), "1: WPaper2 has nothing with the access key Y");
}

TEST(User, Keys_and_shortcuts_that_do_not_exist_fail) {
  EXPECT_EQ(OutcomeStarted("press F99"), "1: \"F99\" is no key");
  EXPECT_EQ(OutcomeStarted("press Foo"), "1: \"Foo\" is no key");
  EXPECT_EQ(OutcomeStarted("press Ctrl+Y"), "1: WPaper2 has no such shortcut");
}

TEST(User, Function_keys_reach_the_control_that_has_the_keyboard) {
  const auto setUp = [](App& app) {
    app.WPaper2.LstRight.OnKeyDown = [&app](int code) { app.ViewMode = static_cast<std::int16_t>(code); };
  };
  EXPECT_EQ(OutcomeStarted("press F5 in LstRight\nexpect global ViewMode = 116\n", setUp), "passes");
}

TEST(User, Arrow_and_page_keys_move_a_bar) {
  const std::string bar = "frmPreferences.sldThumbNailSize";
  EXPECT_EQ(
      OutcomeStarted("choose mnuOptionsSavingJPEGFileFormat\nset " + bar + " to 100\n" + "write " + bar +
                     ".SmallChange = 3\nwrite " + bar + ".LargeChange = 20\n" + "press Right in " + bar +
                     "\nexpect " + bar + ".Value = 103\n" + "press Up in " + bar + "\nexpect " + bar +
                     ".Value = 100\n" + "press PageDown in " + bar + "\nexpect " + bar + ".Value = 120\n" +
                     "press PageUp in " + bar + "\nexpect " + bar + ".Value = 100\n"),
      "passes");
  EXPECT_THAT(OutcomeStarted("choose mnuOptionsSavingJPEGFileFormat\nset " + bar + " to 100\n" +
                             "press Right in " + bar + "\nexpect " + bar + ".Value = 100\n"),
              HasSubstr("but it is"));
}

// A tray icon whose left button opens the first of the tray's menus.
void ShowTray(App& app) {
  frmSystemTrayWindow& form = app.frmSystemTray;
  form.OnActivate = [&app, &form] {
    TrayIconRecord record;
    record.cbSize = TrayIconRecord::Size;
    record.hWnd = form.hwnd();
    record.uID = 1;
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = WM_MOUSEMOVE;
    record.szTip.fill(' ');
    record.szTip[0] = 'L';
    record.szTip[1] = '\0';
    app.platform.tray.Shell_NotifyIconA(NIM_ADD, record);
  };
  app.platform.tray.OnMouseMove = [&app](WindowHandle window, float x, float y) {
    app.SearchDirectory = window == app.frmSystemTray.hwnd() ? "tray" : "other";
    app.ImageWidth = static_cast<std::int16_t>(x / twipsPerPixel);
    app.ImageHeight = static_cast<std::int16_t>(y);
    if (app.ImageWidth != 513) return;
    try {
      app.platform.popup.PopupMenu(app.WPaper2.hwnd(), app.WPaper2.mnuTools.hwnd());
    } catch (const RunTimeError&) {
      app.ImageWidth = -1;
    }
  };
}

TEST(Tray, The_mouse_on_the_icon_comes_back_as_a_mouse_move_of_its_window) {
  EXPECT_EQ(
      OutcomeStarted("expect frmSystemTray.Visible = False\n"
                     "tray right\nexpect global ImageWidth = 516\nexpect global SearchDirectory = tray\n"
                     "tray left up\nexpect global ImageWidth = 514\n"
                     "tray double click\nexpect global ImageWidth = 515\n"
                     "tray message 512\nexpect global ImageWidth = 512\n"
                     "tray move 300 40\nexpect global ImageWidth = 20\nexpect global ImageHeight = 40\n",
                     ShowTray),
      "passes");
  EXPECT_EQ(OutcomeStarted("write frmSystemTray.Enabled = True\ntray right\nexpect global ImageWidth = 517\n",
                           ShowTray),
            "3: expect global ImageWidth = 517\n    but it is \"516\"");
}

TEST(Tray, The_record_is_told_field_by_field) {
  EXPECT_EQ(
      OutcomeStarted("expect tray icon = shown\nexpect tray window = frmSystemTray\nexpect tray id = 1\n"
                     "expect tray flags = 7\nexpect tray message = 512\nexpect tray size = 88\n"
                     "expect tray tip = \"L%00" +
                         std::string(62, ' ') + "\"\n",
                     ShowTray),
      "passes");
  EXPECT_THAT(OutcomeStarted("expect tray size = 80\n", ShowTray), HasSubstr("but it is \"88\""));
  EXPECT_THAT(OutcomeStarted("expect tray tip = L\n", ShowTray), HasSubstr("but it is \"L"));
}

TEST(Tray, Without_an_icon_there_is_nothing_to_use) {
  EXPECT_EQ(
      Outcome("drives\ntray missing\nstart\npress Escape in frmTip\nexpect tray icon = (none)\ntray left\n",
              ShowTray),
      "6: there is no tray icon");
}

TEST(PopupMenu, An_entry_is_chosen_and_the_menu_closes) {
  EXPECT_EQ(OutcomeStarted("expect popup = (none)\ntray left\nexpect popup = mnuTools\n"
                           "choose mnuOptionsFileTypes\n"
                           "expect popup = (none)\nexpect frmPreferences.Visible = True\n"
                           "expect log contains PopupMenu WPaper2.mnuTools\n",
                           ShowTray),
            "passes");
}

TEST(PopupMenu, Timers_go_on_while_it_is_open) {
  EXPECT_EQ(OutcomeStarted("tray left\nexpect frmSplash.Loaded = True\nwait 10 s\n"
                           "expect frmSplash.Loaded = False\nexpect popup = mnuTools\n",
                           ShowTray),
            "passes");
}

TEST(PopupMenu, Escape_leaves_it_and_nothing_else_can_be_done) {
  EXPECT_EQ(
      OutcomeStarted("tray left\npress Escape\nexpect popup = (none)\nclick mnuEditToolBar\n", ShowTray),
      "passes");
  EXPECT_EQ(OutcomeStarted("tray left\npress Enter\n", ShowTray),
            "2: only Escape can be pressed in a popup menu");
  EXPECT_EQ(OutcomeStarted("tray left\nclose WPaper2\n", ShowTray),
            "2: WPaper2 can't be reached while the popup menu WPaper2.mnuTools is open");
  EXPECT_EQ(OutcomeStarted("tray left\nchoose mnuFileExit\n", ShowTray),
            "2: mnuFileExit does not stand in the popup menu mnuTools");
}

TEST(PopupMenu, A_disabled_entry_does_nothing_and_the_menu_stays) {
  EXPECT_EQ(
      OutcomeStarted("write mnuOptionsFileTypes.Enabled = False\ntray left\nchoose mnuOptionsFileTypes\n"
                     "expect popup = mnuTools\nexpect frmPreferences.Visible = False\n",
                     ShowTray),
      "passes");
}

TEST(PopupMenu, A_second_press_on_the_icon_closes_the_first_menu) {
  EXPECT_EQ(OutcomeStarted("tray left\ntray right\nexpect popup = (none)\nclick mnuEditToolBar\n", ShowTray),
            "passes");
  EXPECT_EQ(
      OutcomeStarted("tray left\ntray left\nexpect popup = mnuTools\npress Escape\nclick mnuEditToolBar\n",
                     ShowTray),
      "passes");
}

TEST(PopupMenu, One_that_can_not_be_opened_raises) {
  EXPECT_EQ(OutcomeStarted("popup fails\ntray left\nexpect popup = (none)\nexpect global ImageWidth = -1\n",
                           ShowTray),
            "passes");
}

}  // namespace
}  // namespace lumidex::scenario
