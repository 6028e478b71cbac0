#include "windows/start_and_exit.h"
#include "base/run_time_error.h"
#include "core/default_report.h"
#include "core/paths.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmAbout.h"
#include "forms/frmPreferences.h"
#include "forms/frmSplash.h"
#include "forms/frmSystemTray.h"
#include "forms/frmTip.h"
#include "forms/frmZoomView.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class StartAndExit : public TestProgram {
 protected:
  // The whole start; the user closes the tip.
  void Start() {
    WireWindows(app);
    platform.events.NextUserAction = [&] {
      app.frmTip.cmdOK.UserClick();
      return true;
    };
    app.WPaper2.Load();
  }
  void StartWith(const std::string& path) {
    platform.process.commandLine = "\"" + path + "\"";
    Start();
  }
  int ExitCodeOf(const std::function<void()>& act) {
    try {
      act();
    } catch (const ProgramEnded& end) {
      return end.exitCode;
    }
    return -1;
  }
};

TEST_F(StartAndExit, The_splash_stays_five_seconds_and_the_tip_follows) {
  const double start = platform.events.TimeOfDay();
  bool splashThere = false;
  WireWindows(app);
  double tipAt = 0;
  platform.events.OnYield = [&] { splashThere = splashThere || app.frmSplash.Visible(); };
  platform.events.NextUserAction = [&] {
    tipAt = platform.events.TimeOfDay();
    EXPECT_FALSE(app.frmSplash.Visible());
    EXPECT_TRUE(app.frmTip.IsModal());
    app.frmTip.cmdOK.UserClick();
    return true;
  };
  app.WPaper2.Load();
  EXPECT_TRUE(splashThere);
  EXPECT_GE(tipAt - start, 5.0);
  EXPECT_LT(tipAt - start, 5.1);
  EXPECT_TRUE(app.WPaper2.Visible());
  EXPECT_TRUE(app.frmSplash.cmdClose.Visible);
  EXPECT_EQ(app.AppVersion, "1.0");
  EXPECT_EQ(app.WPaper2.txtPrgTitle.Caption.Get().substr(0, 24), "~~~ Korvane Lumidex ~~~\r");
}

TEST_F(StartAndExit, The_splash_does_not_go_after_a_start_within_five_seconds_of_midnight) {
  platform.events.SetNow({2002, 3, 15, 23, 59, 57});
  WireWindows(app);
  struct StillWaiting {};
  int waits = 0;
  platform.events.OnYield = {};
  platform.events.StartTimer(60000, [&] {
    if (++waits == 3) throw StillWaiting();
  });
  EXPECT_THROW(app.WPaper2.Load(), StillWaiting);
  EXPECT_FALSE(app.frmTip.IsLoaded());
}

TEST_F(StartAndExit, Forms_are_loaded_hidden_and_the_lists_start_empty) {
  Start();
  for (Form* form : std::initializer_list<Form*>{&app.checkjpg, &app.frmAbout, &app.frmZoomView,
                                                 &app.SelectPictureDirectoryForm, &app.frmPreferences}) {
    EXPECT_TRUE(form->IsLoaded()) << form->Name();
    EXPECT_FALSE(form->Visible()) << form->Name();
  }
  EXPECT_FALSE(app.frmSystemTray.Visible());
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
  EXPECT_EQ(app.ViewMode, 1);
  EXPECT_FALSE(app.CommandLineMode);
}

TEST_F(StartAndExit, The_help_item_shows_only_with_the_help_file) {
  Start();
  EXPECT_FALSE(app.WPaper2.mnuHelpHelp.Visible);
}

TEST_F(StartAndExit, The_help_item_shows_with_the_help_file) {
  platform.files.AddFile(platform.process.executableFolder + "\\Lumidex100.chm", "x");
  Start();
  EXPECT_TRUE(app.WPaper2.mnuHelpHelp.Visible);
}

TEST_F(StartAndExit, A_second_instance_ends_before_anything_is_shown) {
  platform.process.hasPreviousInstance = true;
  EXPECT_EQ(ExitCodeOf([&] { Start(); }), 0);
  EXPECT_FALSE(app.frmSplash.Visible());
}

TEST_F(StartAndExit, A_file_on_the_command_line_comes_up) {
  platform.files.AddFile("C:\\my pics\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\my pics\\a.bmp");
  EXPECT_TRUE(app.CommandLineMode);
  EXPECT_EQ(DisplayText(0), "C:\\my pics\\a.bmp");
  EXPECT_EQ(app.WPaper2.lblCount.Caption, std::string("1"));
  EXPECT_EQ(app.CurrentIndex, 1);
  EXPECT_EQ(PanelText(2), "A.Bmp");
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(2).PictureKey, "BMP");
}

TEST_F(StartAndExit, An_unquoted_path_loses_its_ends_and_is_missing) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  platform.process.commandLine = "C:\\a.bmp";
  Start();
  EXPECT_EQ(DisplayText(0), ":\\a.bm");
  EXPECT_EQ(PanelText(2), "A.Bm - Not Available");
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 1);
}

TEST_F(StartAndExit, A_command_line_of_one_character_ends_the_activation_quietly) {
  platform.process.commandLine = "x";
  Start();
  EXPECT_TRUE(app.CommandLineMode);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
  EXPECT_TRUE(app.WPaper2.cmdUp.Enabled) << "the enable rule was not run";
}

TEST_F(StartAndExit, A_second_activation_skips_the_one_time_work) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\a.bmp");
  app.ViewMode = 0;
  app.WPaper2.cmdUp.Enabled = false;
  app.WPaper2.UserActivate();
  EXPECT_EQ(app.ViewMode, 1);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 1);
  EXPECT_TRUE(app.WPaper2.cmdUp.Enabled);
}

TEST_F(StartAndExit, Closing_the_window_saves_and_ends_with_every_form_unloaded) {
  Start();
  EXPECT_EQ(ExitCodeOf([&] { app.WPaper2.UserClose(); }), 0);
  for (Form* form : app.Forms()) EXPECT_FALSE(form->IsLoaded()) << form->Name();
  EXPECT_FALSE(app.SavingSettings);
}

TEST_F(StartAndExit, Closing_the_window_in_command_line_mode_ends_at_once) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\a.bmp");
  EXPECT_EQ(ExitCodeOf([&] { app.WPaper2.UserClose(); }), 0);
  EXPECT_TRUE(app.frmPreferences.IsLoaded()) << "nothing was unloaded";
}

TEST_F(StartAndExit, An_end_from_outside_is_that_of_closing_the_window) {
  Start();
  EXPECT_EQ(ExitCodeOf([&] { EndFromOutside(app); }), 0);
  EXPECT_TRUE(FileExists(app, "C:\\Lumidex\\Lumidex.Cfg"));
  for (Form* form : app.Forms()) EXPECT_FALSE(form->IsLoaded()) << form->Name();
}

TEST_F(StartAndExit, An_end_from_outside_reaches_a_hidden_window_too) {
  Start();
  app.WPaper2.Hide();
  EXPECT_EQ(ExitCodeOf([&] { EndFromOutside(app); }), 0);
  EXPECT_TRUE(FileExists(app, "C:\\Lumidex\\Lumidex.Cfg"));
}

TEST_F(StartAndExit, An_end_from_outside_saves_nothing_in_command_line_mode) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\a.bmp");
  SaveBeforeLeaving(app);
  EXPECT_EQ(ExitCodeOf([&] { EndFromOutside(app); }), 0);
  EXPECT_FALSE(FileExists(app, "C:\\Lumidex\\Lumidex.Cfg"));
}

TEST_F(StartAndExit, An_end_from_outside_before_the_window_has_stood_leaves_the_settings_alone) {
  // The preferences load before the settings are read, and serve events.
  WireWindows(app);
  bool wasAsked = false;
  platform.events.OnYield = [&] {
    if (wasAsked) return;
    wasAsked = true;
    EXPECT_FALSE(app.WPaper2.Visible());
    SaveBeforeLeaving(app);
    EndFromOutside(app);
  };
  EXPECT_EQ(ExitCodeOf([&] { app.WPaper2.Load(); }), 0);
  EXPECT_TRUE(wasAsked);
  EXPECT_FALSE(FileExists(app, "C:\\Lumidex\\Lumidex.Cfg"));
}

TEST_F(StartAndExit, Saving_before_leaving_goes_on_without_a_word) {
  Start();
  app.WPaper2.LstRight.AddItem("C:\\a.bmp");
  app.WPaper2.lblCount.Caption = "1";
  SaveBeforeLeaving(app);
  EXPECT_TRUE(FileExists(app, "C:\\Lumidex\\Lumidex.Cfg"));
  EXPECT_TRUE(FileExists(app, "C:\\Lumidex\\Lumidex.Lst"));
  EXPECT_TRUE(app.WPaper2.Visible());
  platform.files.SetFreeBytes(0);
  SaveBeforeLeaving(app);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(StartAndExit, The_exit_item_in_command_line_mode_freezes_the_program) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\a.bmp");
  EXPECT_THROW(app.WPaper2.mnuFileExit.UserClick(), ProgramHung);
  EXPECT_TRUE(app.SavingSettings);
}

TEST_F(StartAndExit, Saving_in_command_line_mode_shows_nothing_until_an_exit_is_tried) {
  platform.files.AddFile("C:\\a.bmp", BitmapFile(40, 30));
  StartWith("C:\\a.bmp");
  app.WPaper2.Toolbar1.UserPress(3);
  EXPECT_TRUE(app.SavingSettings);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(StartAndExit, An_error_that_nothing_catches_is_reported_and_ends_with_code_1) {
  EXPECT_EQ(ExitCodeOf([&] { RunEvent(app, [] { throw RunTimeError(ErrorNumber::PathNotFound); }); }), 1);
  ASSERT_EQ(platform.dialogs.messages.size(), 1U);
  EXPECT_EQ(platform.dialogs.messages[0].icon, MessageIcon::Critical);
  EXPECT_NE(platform.dialogs.messages[0].text.find("76"), std::string::npos);
  EXPECT_NE(platform.dialogs.messages[0].text.find("Path not found"), std::string::npos);
}

}  // namespace
}  // namespace lumidex
