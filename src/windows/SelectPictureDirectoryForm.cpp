// The events of the directory dialog.

#include "forms/SelectPictureDirectoryForm.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmBackground.h"
#include "imaging/picture_texts.h"
#include "imaging/working_image.h"
#include "lists/file_pattern.h"
#include "preferences/pages.h"
#include "windows/drive_and_directory.h"
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

// Takes in what other programs have done meanwhile.
void LookAgain(Dialog& dialog) {
  dialog.Dir1.Refresh();
  dialog.File1.Refresh();
}

// From a directory that is gone to the nearest above it that is there.
void LeaveGoneDirectory(App& app) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  const std::string gone = directories.Path();
  if (gone.empty() || app.platform.files.DirectoryStamp(gone) != 0) return;
  for (int row = -2; row >= -directories.Depth() && directories.Path() == gone; --row) {
    IgnoreError([&] { directories.SetPath(directories.List(row)); });
  }
}

void Dir1_Change(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  ++dialog.previewsBegun;
  dialog.File1.SetPath(dialog.Dir1.Path());
  app.SearchDirectory = dialog.Dir1.Path();
  dialog.imgThumbNail.Picture = Picture();
  for (auto& label : dialog.lblFileInfo) label->Caption = "";
}

// However the preview ends, whoever reads the control afterwards gets the picture itself.
class ReducedReading {
 public:
  explicit ReducedReading(Gvbox& control) : control_(control) {}
  ~ReducedReading() {
    if (control_.ThumbnailSize != 0) control_.ThumbnailSize = 0;
  }
  ReducedReading(const ReducedReading&) = delete;
  ReducedReading& operator=(const ReducedReading&) = delete;

 private:
  Gvbox& control_;
};

// Yields in the midst of a preview. False when another was asked for in that, or another directory: then this
// one has nothing more to say. A picture that was brought up on the main window has left its file in the
// control.
bool YieldInPreview(App& app, std::string path, std::uint64_t preview) {
  Gvbox& control = app.checkjpg.Picture1;
  app.platform.events.Yield();
  if (app.SelectPictureDirectoryForm.previewsBegun != preview) return false;
  if (control.FileName() != path) control.SetFileName(path);
  return true;
}

// The steps end where one fails, labels and picture as they then stand.
void ShowPreview(App& app) {
  Dialog& dialog = app.SelectPictureDirectoryForm;
  Gvbox& control = app.checkjpg.Picture1;
  const std::uint64_t preview = ++dialog.previewsBegun;
  const std::string path = dialog.File1.Path() + app.platform.files.Separator() + dialog.File1.FileName();
  control.SetFileName("");
  if (path.empty() || !FileExists(app, path)) return;
  control.Appearance = 1;
  const ReducedReading reading(control);
  control.SetFileName(path);
  if (!YieldInPreview(app, path, preview)) return;
  control.ThumbnailSize = previewSize;
  if (!YieldInPreview(app, path, preview)) return;
  dialog.imgThumbNail.BringToFront();
  dialog.imgThumbNail.Picture = control.Picture();
  if (!YieldInPreview(app, path, preview)) return;
  control.ThumbnailSize = 0;
  const auto facts = app.platform.files.Look(path);
  if (!facts) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  dialog.lblFileInfo(1).Caption = NumberInGroups(static_cast<std::int64_t>(facts->size));
  std::int16_t width = app.ImageWidth, height = app.ImageHeight;
  float bitsPerPixel = app.ImageBitsPerPixel;
  GetImageInfo(app, path, width, height, bitsPerPixel);
  if (dialog.previewsBegun != preview) return;
  // In that yield, too, a picture may have come up, and the record tells of that one then.
  if (control.FileName() == path) {
    app.ImageWidth = width;
    app.ImageHeight = height;
    app.ImageBitsPerPixel = bitsPerPixel;
  }
  dialog.lblFileInfo(2).Caption = LengthText(width);
  dialog.lblFileInfo(3).Caption = LengthText(height);
  dialog.lblFileInfo(4).Caption = ColoursText(bitsPerPixel);
  app.platform.events.Yield();
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
  LookAgain(app.SelectPictureDirectoryForm);
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
  dialog.OnActivate = [&app, takePattern] {
    LookAgain(app.SelectPictureDirectoryForm);
    LeaveGoneDirectory(app);
    takePattern();
  };
  JoinDriveAndDirectory(app, dialog.Drive1, dialog.Dir1);
  dialog.Dir1.OnChange = [&app] { Dir1_Change(app); };
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
