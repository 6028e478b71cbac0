// The main window's events: start, activation, closing, and the routine behind each item and button.

#include "forms/WPaper2.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/enable_state.h"
#include "core/paths.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/checkjpg.h"
#include "forms/frmAbout.h"
#include "forms/frmAdjustColorBalance.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "forms/frmFileProperties.h"
#include "forms/frmMakeThumbNails.h"
#include "forms/frmPreferences.h"
#include "forms/frmSplash.h"
#include "forms/frmSystemTray.h"
#include "forms/frmThumbNail.h"
#include "forms/frmTip.h"
#include "forms/frmZoomView.h"
#include "forms/frmstats.h"
#include "imaging/zoom_menu.h"
#include "lists/directory_search.h"
#include "lists/dropped_files.h"
#include "lists/image_lists.h"
#include "preferences/pages.h"
#include "preferences/settings_file.h"
#include "windows/WPaper2_layout.h"
#include "windows/start_and_exit.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

constexpr float splashSeconds = 5.0F;

float TimeOfDay(const App& app) {
  return static_cast<float>(app.platform.clock.TimeOfDay());
}

// The splash stays for five seconds from the beginning of the start, however long loading took. After
// midnight the difference is negative and the wait goes on.
void WaitForSplash(App& app, float startTime) {
  while (true) {
    const float passed = TimeOfDay(app) - startTime;
    if (passed >= splashSeconds) return;
    const float left = passed < 0 ? splashSeconds : splashSeconds - passed;
    app.platform.events.Wait(static_cast<int>(left * 1000.0F) + 1);
  }
}

void Form_Load(App& app) {
  const float startTime = TimeOfDay(app);
  app.AppPath = GetAppPath(app);
  CheckPrevInstance(app);
  app.AppVersion = "1.0";
  app.frmSplash.cmdClose.Visible = false;
  app.frmSplash.Show();
  app.WPaper2.txtPrgTitle.Caption = "~~~ Korvane Lumidex ~~~\rCopyright 2001 Korvane";
  app.WPaper2.Hide();
  for (Form* form : std::initializer_list<Form*>{
           &app.checkjpg, &app.frmAbout, &app.frmAdjustColorBalance, &app.frmAdjustContrastandBrightness,
           &app.frmFileProperties, &app.frmMakeThumbNails, &app.frmPreferences, &app.frmstats,
           &app.frmThumbNail, &app.frmZoomView, &app.SelectPictureDirectoryForm}) {
    form->Load();
  }
  // Behind the loads, since it writes into the controls of the preferences.
  ReadSettings(app);
  app.frmSystemTray.Show();
  app.WPaper2.Show();
  app.WPaper2.Refresh();
  app.WPaper2.mnuHelpHelp.Visible = FileExists(app, app.AppPath + "Lumidex100.chm");
  app.platform.events.Yield();
  app.frmSplash.BringToFront();
  WaitForSplash(app, startTime);
  app.frmSplash.Hide();
  app.frmSystemTray.Hide();
  app.frmSplash.cmdClose.Visible = true;
  app.frmTip.Show(Modality::Modal);
  app.platform.events.Yield();
}

// The shell hands the path over in double quotes: the first and the last character go, whatever they are.
void TakeInCommandLine(App& app, std::string commandLine) {
  app.CommandLineMode = true;
  WPaper2Window& window = app.WPaper2;
  window.LstRight.AddItem(Mid(commandLine, 2, Len(commandLine) - 2));
  window.lblCount.Caption = Number(Val(window.lblCount.Caption.Get()) + 1);
  app.CurrentImagePath = window.LstRight.Text();
  window.CurrentPicture.Caption = "1";
  NextImage(app);
}

void Form_Activate(App& app) {
  IgnoreError([&] {
    app.ViewMode = 1;
    if (!app.WPaper2.WindowActivatedOnce) {
      app.WPaper2.Refresh();
      WPaper2_Resize(app);
      app.platform.events.Yield();
      // A second activation in these yields has done the one-time work already.
      const bool isFirst = !app.WPaper2.WindowActivatedOnce;
      app.WPaper2.WindowActivatedOnce = true;
      const std::string commandLine = app.platform.process.CommandLine();
      if (isFirst && !commandLine.empty()) TakeInCommandLine(app, commandLine);
    }
    UpdateEnableState(app);
  });
  app.platform.events.Yield();
}

void Form_QueryUnload(App& app, bool& cancel) {
  if (app.exiting) return;
  if (app.CommandLineMode) app.platform.events.EndProcess(0);
  cancel = true;
  ExitProgram(app);
}

void Form_Unload(App& app) {
  if (app.exiting) return;
  app.platform.events.Yield();
  app.platform.events.EndProcess(0);
}

void InvertShown(MenuItem& item, Control& control) {
  item.Checked = !item.Checked;
  control.Visible = !control.Visible;
}

void Toolbar1_ButtonClick(App& app, std::string key) {
  WPaper2Window& window = app.WPaper2;
  if (key == "Directory") StartDirectorySearch(app);
  if (key == "Load") window.mnuFileLoad.Click();
  if (key == "Save") SaveSettingsAndList(app);
  if (key == "Exit") ExitProgram(app);
  if (key == "Copy") window.mnuPictureCopy.Click();
  if (key == "wpaperc") window.mnuPictureWallPaperCentered.Click();
  if (key == "wpapers") window.mnuPictureWallPaperStretched.Click();
  if (key == "wpapert") window.mnuPictureWallPaperTiled.Click();
  if (key == "wpaperr") window.mnuPictureWallPaperClear.Click();
  if (key == "Next") NextImage(app);
  if (key == "Previous") PreviousImage(app);
  if (key == "filetype") OpenPreferencesPage(app, 0);
  if (key == "color") window.mnuEditImageColorBalances.Click();
  if (key == "bright") window.mnuEditImageContrast.Click();
  if (key == "rotate") window.mnuEditRotate90.Click();
  if (key == "zoomdec") StepZoomDown(app);
  if (key == "zoominc") StepZoomUp(app);
  if (key == "zoom") window.mnuPictureViewer.Click();
  if (key == "thumb") window.mnuPictureThumbNailViewer.Click();
  if (key == "About") window.mnuHelpAbout.Click();
}

void WireMenu(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.mnuFileDirectory.OnClick = [&] { StartDirectorySearch(app); };
  window.mnuFileClear.OnClick = [&] { ZapDisplayList(app); };
  window.mnuFileSave.OnClick = [&] { SaveSettingsAndList(app); };
  window.mnuFileExit.OnClick = [&] { ExitProgram(app); };
  window.mnuEditToolBar.OnClick = [&] { InvertShown(window.mnuEditToolBar, window.Toolbar1); };
  window.mnuEditStatusBar.OnClick = [&] { InvertShown(window.mnuEditStatusBar, window.StatusBar1); };
  for (int level = 1; level <= 11; ++level) {
    window.mnuEditZoomLevel(level).OnClick = [&app, level] { SelectZoomLevel(app, level); };
  }
  window.mnuPicturePrevious.OnClick = [&] { PreviousImage(app); };
  window.mnuPictureNext.OnClick = [&] { NextImage(app); };
  window.mnuPictureAddOne.OnClick = [&] { AddOneToDisplayList(app); };
  window.mnuPictureAddAll.OnClick = [&] { AddAllToDisplayList(app); };
  window.mnuPictureRemoveOne.OnClick = [&] { RemoveOneFromDisplayList(app); };
  window.mnuPictureRemoveAll.OnClick = [&] { ZapDisplayList(app); };
}

void WireLists(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.cmdRightOne.OnClick = [&] { AddOneToDisplayList(app); };
  window.cmdRightAll.OnClick = [&] { AddAllToDisplayList(app); };
  window.cmdLeftOne.OnClick = [&] { RemoveOneFromDisplayList(app); };
  window.cmdLeftAll.OnClick = [&] { ZapDisplayList(app); };
  window.cmdUp.OnClick = [&] { MoveDisplayEntryUp(app); };
  window.cmdDown.OnClick = [&] { MoveDisplayEntryDown(app); };
  window.LstLeft.OnClick = [&] { PreviewSelectionEntry(app); };
  window.LstLeft.OnDblClick = [&] { AddOneToDisplayList(app); };
  window.LstRight.OnClick = [&] { DisplayListClick(app); };
  window.LstRight.OnDblClick = [&] { ActivateDisplayEntry(app); };
  window.LstRight.OnKeyDown = [&](int keyCode) {
    constexpr int enter = 13;
    if (keyCode != enter) return;
    window.LstRight.SetFocus();
    ActivateDisplayEntry(app);
  };
}

}  // namespace

void WireWPaper2(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.OnLoad = [&] { Form_Load(app); };
  window.OnActivate = [&] { Form_Activate(app); };
  window.OnResize = [&] { WPaper2_Resize(app); };
  window.OnQueryUnload = [&](bool& cancel) { Form_QueryUnload(app, cancel); };
  window.OnUnload = [&](bool&) { Form_Unload(app); };
  window.OnPaint = [&] { app.platform.events.Yield(); };
  window.OnClick = [&] { WPaper2_Click(app); };
  window.OnDrop = [&](const std::vector<std::string>& paths) { TakeInDropped(app, paths); };
  window.Toolbar1.OnButtonClick = [&](const std::string& key, int) { Toolbar1_ButtonClick(app, key); };
  WireMenu(app);
  WireLists(app);
}

}  // namespace lumidex
