// The events of the two windows of a batch conversion, and of the chooser that nothing opens.

#include "base/text.h"
#include "batch/batch_conversion.h"
#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "forms/frmConvertFileName.h"
#include "forms/frmConvertFileType.h"
#include "forms/frmSelectBatchDir.h"
#include "windows/drive_and_directory.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void WirefrmConvertFileType(App& app) {
  frmConvertFileTypeWindow& dialog = app.frmConvertFileType;
  dialog.OnLoad = [&app, &dialog] {
    dialog.Icon = app.WPaper2.Icon.Get();
    dialog.Image1.Picture = app.frmBackground.Image1.Picture.Get();
    // The first option gets the keyboard when the dialog is first opened, and getting it selects it.
    dialog.optFileType(0).Value = true;
  };
  dialog.cmdConvert.OnClick = [&dialog] { dialog.Hide(); };
  dialog.cmdCancel.OnClick = [&dialog] {
    for (int i = 0; i <= 1; ++i) dialog.optFileType(i).Value = false;
    dialog.Hide();
  };
}

void WirefrmConvertFileName(App& app) {
  frmConvertFileNameWindow& window = app.frmConvertFileName;
  window.OnLoad = [&app, &window] {
    window.Icon = app.WPaper2.Icon.Get();
    window.Image1.Picture = app.frmBackground.Image1.Picture.Get();
  };
  // A batch can't be cancelled, nor its window closed meanwhile.
  window.OnQueryUnload = [&app, &window](bool& cancel) { cancel = window.Converting && !app.exiting; };
}

void WirefrmSelectBatchDir(App& app) {
  frmSelectBatchDirWindow& dialog = app.frmSelectBatchDir;
  dialog.OnLoad = [&app, &dialog] {
    dialog.Dir1.SetPath(app.platform.files.CurrentDirectory());
    dialog.Drive1.SetDrive(dialog.Dir1.Path());
  };
  JoinDriveAndDirectory(app, dialog.Drive1, dialog.Dir1);
  dialog.Dir1.OnChange = [&dialog] { dialog.lblDirectoryName.Caption = dialog.Dir1.Path(); };
  dialog.cmdOK.OnClick = [&app, &dialog] {
    std::string name = Trim(dialog.lblDirectoryName.Caption.Get());
    if (!name.ends_with(app.platform.files.Separator())) name += app.platform.files.Separator();
    dialog.lblDirectoryName.Caption = name;
    dialog.Hide();
  };
  dialog.cmdCancel.OnClick = [&dialog] {
    dialog.lblDirectoryName.Caption = "";
    dialog.Hide();
  };
}

}  // namespace

void WireBatch(App& app) {
  WirefrmConvertFileType(app);
  WirefrmConvertFileName(app);
  WirefrmSelectBatchDir(app);
  app.WPaper2.mnuFileBatchConvertImages.OnClick = [&app] { ConvertImages(app); };
}

}  // namespace lumidex
