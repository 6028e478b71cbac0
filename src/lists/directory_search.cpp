#include "lists/directory_search.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/enable_state.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/frmlocatefiles.h"
#include "imaging/status_bar.h"
#include "lists/file_pattern.h"

namespace lumidex {
namespace {

// Moves Dir1 to its highlighted row; true when that was another directory.
bool MoveToHighlighted(App& app) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  const std::string highlighted = directories.List(directories.ListIndex());
  if (directories.Path() == highlighted) return false;
  directories.SetPath(highlighted);
  return true;
}

// Adds the first `count` files of File1 to the Selection list.
void AddFiles(App& app, int count) {
  const DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  const FileList& files = app.SelectPictureDirectoryForm.File1;
  std::string prefix = directories.Path();
  // A root keeps the separator that it ends in.
  if (!prefix.ends_with(app.platform.files.Separator())) prefix += app.platform.files.Separator();
  for (int i = 0; i < count; ++i) app.WPaper2.LstLeft.AddItem(prefix + files.List(i));
}

void ShowProgress(App& app) {
  const std::string text = " Directories Searched: " + Number(app.DirectoriesSearched) +
                           " ---  Files Found:" + Number(app.WPaper2.LstLeft.ListCount());
  UpdateStatusBarQuietly(app, text, false);
}

void SayListIsFull(App& app) {
  app.platform.dialogs.MsgBox({"You've filled the listbox. Search being abandoned..."});
}

std::vector<std::string> SubFolders(const DirList& directories) {
  std::vector<std::string> paths;
  for (int i = 0; i < directories.ListCount(); ++i) paths.push_back(directories.List(i));
  return paths;
}

// Goes down into a subdirectory. One that is gone, that can't be entered or that is a symbolic link is left
// out alone: its neighbours are still searched.
void WalkSubdirectory(App& app, std::string path, std::int16_t DirCount, std::string OldPath,
                      bool& AbandonSearch) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  const auto facts = app.platform.files.Look(path);
  if (!facts || facts->kind != EntryKind::Directory) return;
  try {
    directories.SetPath(path);
  } catch (const RunTimeError&) {
    return;
  }
  const std::string NewPath = directories.Path();
  AbandonSearch = WalkDirectory(app, NewPath, DirCount, OldPath);
}

// A level that could not go back, since its directory was gone for a moment, has left Dir1 below this one.
// After a refusal of the full list it stays where that was.
void ComeBackTo(App& app, std::string path) {
  if (app.SearchRunning && app.WPaper2.LstLeft.ListCount() < ListBox::Capacity) {
    app.SelectPictureDirectoryForm.Dir1.SetPath(path);
  }
}

// Answers the number of this search.
std::uint64_t BeginSearch(App& app) {
  WPaper2Window& window = app.WPaper2;
  // One that runs ends here: this one empties its list.
  ++app.searchesBegun;
  app.frmlocatefiles.Hide();
  window.Pointer = MousePointer::Hourglass;
  window.StatusBar1.SetText(1, "Search Status:");
  window.LstLeft.Clear();
  return app.searchesBegun;
}

void NoteSearched(App& app) {
  app.frmlocatefiles.Hide();
  app.CommandLineMode = false;
  app.CurrentImagePath = app.WPaper2.LstRight.Text();
}

void EndSearch(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.StatusBar1.SetText(1, "Current Image:");
  UpdateStatusBarQuietly(app, app.CurrentImagePath, true);
  window.Pointer = MousePointer::Default;
  UpdateEnableState(app);
}

}  // namespace

void StartDirectorySearch(App& app) {
  BeginSearch(app);
  app.SelectPictureDirectoryForm.Show(Modality::Modal);
  if (!app.SearchDirectory.empty()) {
    app.frmlocatefiles.Show();
    if (app.SelectPictureDirectoryForm.chkSearchSubs.Value == 1) {
      SearchSubFolders(app);
    } else {
      SearchOneDirectory(app);
    }
    NoteSearched(app);
  }
  EndSearch(app);
}

void SearchFolders(App& app, std::vector<std::string> folders) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  const std::string before = directories.Path();
  const std::uint64_t search = BeginSearch(app);
  app.frmlocatefiles.Show();
  for (const std::string& folder : folders) {
    app.SearchRunning = false;
    IgnoreError([&] {
      directories.SetPath(folder);
      SearchSubFolders(app);
    });
    // Cancelled, overtaken, or there is nothing to search for.
    if (!app.SearchRunning || app.searchesBegun != search) break;
  }
  // A newer search has come to its end within this one, and Dir1 is where that left it.
  if (app.searchesBegun == search) IgnoreError([&] { directories.SetPath(before); });
  NoteSearched(app);
  EndSearch(app);
}

void SearchSubFolders(App& app) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  FileList& files = app.SelectPictureDirectoryForm.File1;
  app.DirectoriesSearched = 0;
  if (MoveToHighlighted(app)) return;
  const std::string pattern = BuildFilePattern(app);
  if (pattern.empty()) {
    app.platform.dialogs.MsgBox(
        {"No file types have been selected. Please select the desired file types and try again."});
    return;
  }
  files.Pattern = pattern;
  const std::string first = directories.Path();
  const std::int16_t DirCount = directories.ListCount();
  app.SearchRunning = true;
  WalkDirectory(app, first, DirCount, "");
  files.SetPath(directories.Path());
}

bool WalkDirectory(App& app, std::string NewPath, std::int16_t DirCount, std::string BackUp) {
  DirList& directories = app.SelectPictureDirectoryForm.Dir1;
  EventQueue& events = app.platform.events;
  const std::uint64_t search = app.searchesBegun;
  const auto isOvertaken = [&] { return app.searchesBegun != search; };
  ++app.DirectoriesSearched;
  ShowProgress(app);
  app.SearchRunning = true;
  events.Yield();
  if (isOvertaken() || !app.SearchRunning) return true;
  try {
    // Taken once: while those below are searched, others may come and go beside them.
    const std::vector<std::string> subFolders = SubFolders(directories);
    bool AbandonSearch = false;
    for (std::size_t DirsToPeek = subFolders.size(); DirsToPeek >= 1 && app.SearchRunning;) {
      const std::string OldPath = directories.Path();
      directories.SetPath(NewPath);
      WalkSubdirectory(app, subFolders[DirsToPeek - 1], DirCount, OldPath, AbandonSearch);
      if (isOvertaken()) return true;
      --DirsToPeek;
      // The request to stop travels one level only.
      if (AbandonSearch) return false;
      events.Yield();
      if (isOvertaken()) return true;
    }
    ComeBackTo(app, NewPath);
    // A directory with more files than the list can hold must meet the list's refusal, which is what is
    // reported.
    AddFiles(app, app.SelectPictureDirectoryForm.File1.FileCount());
  } catch (const RunTimeError& error) {
    if (error.Number() == ErrorNumber::OutOfMemory) {
      SayListIsFull(app);
      return true;
    }
    // Whatever else went wrong, this directory's rest is skipped silently.
  }
  if (!BackUp.empty()) IgnoreError([&] { directories.SetPath(BackUp); });
  return false;
}

void SearchOneDirectory(App& app) {
  app.SearchRunning = true;
  if (MoveToHighlighted(app)) return;
  app.SelectPictureDirectoryForm.File1.Pattern = BuildFilePattern(app);
  try {
    AddFiles(app, app.SelectPictureDirectoryForm.File1.FileCount());
  } catch (const RunTimeError& error) {
    if (error.Number() != ErrorNumber::OutOfMemory) throw;
    SayListIsFull(app);
  }
}

}  // namespace lumidex
