// The events of the directory dialog.

#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmBackground.h"
#include "imaging/working_image.h"
#include "lists/file_pattern.h"
#include "preferences/pages.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

constexpr int previewSize = 150;

using Dialog = SelectPictureDirectoryFormWindow;

void Form_Load(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  dialog.Icon = app.WPaper2.Icon.Get();
  dialog.Image1.Picture = app.frmBackground.Image1.Picture.Get();
  dialog.Dir1.SetPath(app.platform.files.CurrentDirectory());
  dialog.Drive1.SetDrive(dialog.Dir1.Path());
  dialog.File1.Pattern = BuildFilePattern(app);
}

void Drive1_Change(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  try {
    // A drive alone means the directory that is current on it, and that is where Dir1 stands already.
    if (app.platform.files.DriveOf(dialog.Dir1.Path()) == dialog.Drive1.Drive()) return;
    dialog.Dir1.SetPath(dialog.Drive1.Drive());
  } catch (const RunTimeError&) {
    dialog.Drive1.SetDrive(dialog.Dir1.Path());
  }
}

void Dir1_Change(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  dialog.File1.SetPath(dialog.Dir1.Path());
  app.SearchDirectory = dialog.Dir1.Path();
  dialog.imgThumbNail.Picture = Picture();
  for (auto& label : dialog.lblFileInfo) label->Caption = "";
}

std::string LengthText(std::int16_t pixels) {
  return pixels == 0 ? "Unknown" : Number(pixels);
}

std::string ColorsText(float bitsPerPixel) {
  if (bitsPerPixel == 0) return "Unknown";
  if (bitsPerPixel == 24) return "16.7 Million (24-bit)";
  if (bitsPerPixel == 16) return "65,536 (16-bit)";
  return Number(std::pow(2.0, static_cast<double>(bitsPerPixel)));
}

// The steps end where one fails, labels and picture as they then stand.
void ShowPreview(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  Gvbox& control = app.checkjpg.Picture1;
  EventQueue& events = app.platform.events;
  const std::string path = dialog.File1.Path() + app.platform.files.Separator() + dialog.File1.FileName();
  control.SetFileName("");
  if (path.empty() || !FileExists(app, path)) return;
  control.Appearance = 1;
  control.SetFileName(path);
  events.Yield();
  control.ThumbnailSize = previewSize;
  events.Yield();
  dialog.imgThumbNail.BringToFront();
  dialog.imgThumbNail.Picture = control.Picture();
  events.Yield();
  control.ThumbnailSize = 0;
  const auto facts = app.platform.files.Look(path);
  if (!facts) throw RunTimeError(ErrorNumber::FileNotFound);
  dialog.lblFileInfo(1).Caption = NumberInGroups(static_cast<std::int64_t>(facts->size));
  GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
  dialog.lblFileInfo(2).Caption = LengthText(app.ImageWidth);
  dialog.lblFileInfo(3).Caption = LengthText(app.ImageHeight);
  dialog.lblFileInfo(4).Caption = ColorsText(app.ImageBitsPerPixel);
  events.Yield();
}

void cmdFolder_Click(App& app, int index) {
  const SpecialFolders& folders = app.platform.folders;
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  if (index == 0) directories.SetPath(folders.Desktop());
  if (index == 1) directories.SetPath(folders.Documents());
  if (index == 2) directories.SetPath(folders.Favorites());
}

void cmdOK_Click(App& app) {
  const char separator = app.platform.files.Separator();
  app.SearchDirectory = app.SelectPictureDirectoryForm.Dir1.Path();
  if (!app.SearchDirectory.ends_with(separator)) app.SearchDirectory += separator;
  app.SelectPictureDirectoryForm.Hide();
}

void cmdCancel_Click(App& app) {
  app.SearchDirectory.clear();
  app.SelectPictureDirectoryForm.Hide();
}

}  // namespace

void WireSelectPictureDirectoryForm(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  const auto takePattern = [&app] { app.SelectPictureDirectoryForm.File1.Pattern = BuildFilePattern(app); };
  dialog.OnLoad = [&app] { Form_Load(app); };
  dialog.OnActivate = [&dialog, takePattern] {
    dialog.Dir1.Refresh();
    dialog.File1.Refresh();
    takePattern();
  };
  dialog.Drive1.OnChange = [&app] { Drive1_Change(app); };
  dialog.Dir1.OnChange = [&app] { Dir1_Change(app); };
  dialog.Dir1.OnKeyPress = [&dialog](int keyCode) {
    constexpr int space = 32;
    if (keyCode == space) dialog.Dir1.OpenHighlighted();
  };
  dialog.Dir1.OnLostFocus = [&dialog] { dialog.Dir1.OpenHighlighted(); };
  dialog.File1.OnClick = [&app] { IgnoreError([&] { ShowPreview(app); }); };
  for (int i = 0; i <= 2; ++i) {
    dialog.cmdFolder(i).OnClick = [&app, i] { cmdFolder_Click(app, i); };
  }
  dialog.cmdSelectFileTypes.OnClick = [&app, takePattern] {
    OpenPreferencesPage(app, 0);
    takePattern();
  };
  dialog.cmdOK.OnClick = [&app] { cmdOK_Click(app); };
  dialog.cmdCancel.OnClick = [&app] { cmdCancel_Click(app); };
  // The frame counts as Cancel; the form stays loaded. At the exit it is unloaded for good.
  dialog.OnQueryUnload = [&app](bool& cancel) {
    if (app.exiting) return;
    cancel = true;
    cmdCancel_Click(app);
  };
}

}  // namespace lumidex
