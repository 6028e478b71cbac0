// The main window's items that save and load lists.

#include "base/run_time_error.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "lists/image_lists.h"
#include "lists/list_files.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

constexpr int longNames = 0x200000;
constexpr int hideReadOnly = 0x4;
constexpr int listFilter = 1;

void PrepareDialog(CommonDialog& dialog, const char* title, const char* fileName, int flags) {
  dialog.DefaultExt = "LST";
  dialog.DialogTitle = title;
  dialog.FileName = fileName;
  dialog.Filter = "Lumidex File List (*.LST)|*.LST|";
  dialog.Flags = flags;
}

void Close(App& app, const ListLoad& load) {
  if (load.GivesWay()) {
    LeaveCommandLineMode(app);
  } else {
    FinishListLoad(app);
  }
}

// A cancelled dialog is not told apart from an accepted one: the name and the filter it holds decide.
void mnuFileSaveAs_Click(App& app) {
  CommonDialog& dialog = app.WPaper2.CMDialog1;
  PrepareDialog(dialog, "Save Lumidex Image List As", "Lumidex",
                longNames | hideReadOnly | CommonDialog::OverwritePrompt);
  dialog.ShowSave();
  if (dialog.FilterIndex == listFilter) SaveUserList(app, dialog.FileName);
}

void mnuFileLoadAs_Click(App& app) {
  CommonDialog& dialog = app.WPaper2.CMDialog1;
  PrepareDialog(dialog, "Load Lumidex Image List", "", longNames | hideReadOnly);
  dialog.ShowOpen();
  const std::string path = dialog.FileName;
  if (!FileExists(app, path) || !(dialog.FilterIndex == listFilter)) {
    FinishListLoad(app);
    return;
  }
  ListLoad load(app);
  LoadUserList(app, load, path);
  Close(app, load);
  load.Stands();
}

// A damaged list ends it quietly, with the list as far as it got.
void mnuFileLoad_Click(App& app) {
  ListLoad load(app);
  IgnoreError([&] {
    EmptyDisplayList(app);
    LoadStandardList(app, load);
    Close(app, load);
  });
  load.Stands();
}

}  // namespace

void WireListFiles(App& app) {
  app.WPaper2.mnuFileSaveAs.OnClick = [&] { mnuFileSaveAs_Click(app); };
  app.WPaper2.mnuFileLoadAs.OnClick = [&] { mnuFileLoadAs_Click(app); };
  app.WPaper2.mnuFileLoad.OnClick = [&] { mnuFileLoad_Click(app); };
}

}  // namespace lumidex
