#include "lists/image_lists.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/enable_state.h"
#include "core/paths.h"
#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "imaging/current_picture.h"
#include "imaging/proper_names.h"
#include "imaging/status_bar.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

// lblCount is a counter of its own: operations add to the number that its caption shows.
void RaiseCount(App& app, int by) {
  Label& count = app.WPaper2.lblCount;
  count.Caption = Number(Val(count.Caption.Get()) + by);
}

// Whether the lists are still those of the beginning, with what came and went since. In the yields of a
// picture the Display list may be emptied or another loaded, and a search fills the Selection list anew.
class SameLists {
 public:
  explicit SameLists(const App& app)
      : app_(app), loads_(app.listLoading.begun), searches_(app.searchesBegun) {}
  bool DisplayStands() const { return app_.listLoading.begun == loads_; }
  bool SelectionStands() const { return app_.searchesBegun == searches_; }

 private:
  const App& app_;
  std::uint64_t loads_, searches_;
};

class Flagged {
 public:
  explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flagged() { flag_ = false; }
  Flagged(const Flagged&) = delete;
  Flagged& operator=(const Flagged&) = delete;

 private:
  bool& flag_;
};

// The position alone: the flag would say the same again. After a command that ran in the yields of the click
// it would take back what that one selected, or ask for an entry that it removed.
void SelectDisplayEntry(App& app, std::int32_t position) {
  app.WPaper2.LstRight.SetListIndex(position);
}

void ShowCurrentIndex(App& app) {
  app.WPaper2.CurrentPicture.Caption = Number(app.CurrentIndex);
}

void SayNotAvailable(App& app, std::string path) {
  app.displays.AskForWords(path);
  UpdateStatusBar(app, ProperFileName(app, path) + " - not available", false);
}

// Brings a file up, or says that it is not there.
void ShowFile(App& app, std::string path) {
  if (!FileExists(app, path)) {
    SayNotAvailable(app, path);
    return;
  }
  const DisplayRequests::Telling request(app.displays, path);
  DisplayCurrentImage(app, path, false, GetZoomFactor(app));
  for (bool again = true; again && !request.IsStale();) {
    KeepWorkingFile(app, path);
    UpdateStatusBar(app, path, true);
    // Zoom, stretch or the area may have changed in the last of these yields.
    again = !request.IsStale() && app.displays.IsMisplaced() && FileExists(app, path);
    if (again) DisplayCurrentImage(app, path, true, GetZoomFactor(app));
  }
}

bool HasNeighbours(const App& app) {
  return app.WPaper2.LstRight.ListCount() > 0 && !app.listLoading.isPart;
}

// A list file may tell a current entry behind its last one, and while an entry is being removed the counter
// is one ahead of the list.
bool IsBeyondList(const App& app) {
  return app.CurrentIndex > app.WPaper2.LstRight.ListCount();
}

void SetListExtent(App& app, ListBox& list) {
  constexpr unsigned setHorizontalExtent = 1045;
  constexpr std::uintptr_t margin = 72;
  WPaper2Window& window = app.WPaper2;
  IgnoreError([&] {
    const ScaleMode remembered = window.Scale;
    window.Scale = ScaleMode::Pixels;
    list.SetFocus();
    const WindowHandle handle = app.platform.windows.GetFocus();
    const std::int32_t width = ToInt32(static_cast<double>(window.TextWidth(list.Text())));
    app.platform.windows.SendMessageA(handle, setHorizontalExtent,
                                      static_cast<std::uintptr_t>(width) + margin, 0);
    window.Scale = remembered;
  });
}

// Moves the selected entry along by that many places. It is taken out before it is put in again: a full list
// has no room for it twice.
void MoveDisplayEntry(App& app, int by) {
  ListBox& list = app.WPaper2.LstRight;
  const int position = list.ListIndex();
  const std::string text = list.Text();
  IgnoreError([&] { list.RemoveItem(position); });
  IgnoreError([&] { list.AddItem(text, position + by); });
  IgnoreError([&] { list.SetSelected(position + by, true); });
  IgnoreError([&] { SetDisplayListExtent(app); });
  IgnoreError([&] { app.platform.events.Yield(); });
}

// What a click in the Display list leads to; the position is told already.
void ShowSelectedEntry(App& app) {
  IgnoreError([&] {
    const std::string path = app.WPaper2.LstRight.Text();
    if (FileExists(app, path)) {
      ShowDisplayEntry(app, path);
      // Emptied in these yields, the list has no entry in use.
      if (app.CurrentIndex > 0) ShowCurrentIndex(app);
    } else {
      SayNotAvailable(app, path);
    }
    app.platform.events.Yield();
  });
}

}  // namespace

void DisplayListClick(App& app) {
  IgnoreError([&] {
    SetDisplayListExtent(app);
    app.CurrentIndex = app.WPaper2.LstRight.ListIndex() + 1;
    ShowCurrentIndex(app);
    app.displays.Run([&app] { ShowSelectedEntry(app); });
  });
}

void ShowDisplayEntry(App& app, std::string path) {
  IgnoreError([&] {
    ShowCurrentIndex(app);
    if (FileExists(app, path)) SelectDisplayEntry(app, app.CurrentIndex - 1);
    ShowFile(app, path);
    app.platform.events.Yield();
    ReadNeighboursAhead(app);
  });
}

void ActivateDisplayEntry(App& app) {
  app.CurrentIndex = app.WPaper2.LstRight.ListIndex() + 1;
  ShowCurrentIndex(app);
  app.displays.Run([&app] { ShowDisplayEntry(app, app.WPaper2.LstRight.Text()); });
  SetDisplayListExtent(app);
}

void PreviewSelectionEntry(App& app) {
  IgnoreError([&] {
    SetSelectionListExtent(app);
    app.displays.Run([&app] { IgnoreError([&] { ShowFile(app, app.WPaper2.LstLeft.Text()); }); });
  });
}

void AddOneToDisplayList(App& app) {
  ListBox& selection = app.WPaper2.LstLeft;
  ListBox& display = app.WPaper2.LstRight;
  const int position = selection.ListIndex();
  if (position < 0 || app.addingEntries || display.ListCount() >= ListBox::Capacity) return;
  const SameLists lists(app);
  display.AddItem(selection.Text());
  {
    const Flagged adding(app.addingEntries);
    SelectDisplayEntry(app, display.ListCount() - 1);
  }
  if (lists.SelectionStands()) selection.RemoveItem(position);
  if (lists.DisplayStands()) {
    RaiseCount(app, 1);
    // Back to the first entry after every add, however long the list is.
    SelectDisplayEntry(app, 0);
  }
  UpdateEnableState(app);
  SetDisplayListExtent(app);
}

void AddAllToDisplayList(App& app) {
  ListBox& selection = app.WPaper2.LstLeft;
  if (selection.ListCount() == 0 || app.addingEntries) return;
  IgnoreError([&] {
    const Flagged adding(app.addingEntries);
    const SameLists lists(app);
    const int count = selection.ListCount();
    for (int position = 0; position < count; ++position) {
      app.WPaper2.LstRight.AddItem(selection.List(position));
      RaiseCount(app, 1);
    }
    SelectDisplayEntry(app, 0);
    SetDisplayListExtent(app);
    if (lists.SelectionStands()) selection.Clear();
  });
  UpdateEnableState(app);
}

void AddToDisplayList(App& app, std::vector<std::string> paths) {
  ListBox& list = app.WPaper2.LstRight;
  const int first = list.ListCount();
  IgnoreError([&] {
    for (const std::string& path : paths) {
      list.AddItem(path);
      RaiseCount(app, 1);
    }
  });
  if (list.ListCount() == first) return;
  SelectDisplayEntry(app, first);
  UpdateEnableState(app);
}

void RemoveOneFromDisplayList(App& app) {
  ListBox& display = app.WPaper2.LstRight;
  const int position = display.ListIndex();
  if (position < 0 || app.removingEntry) return;
  if (display.ListCount() == 1) {
    ZapDisplayList(app);
  } else {
    const SameLists lists(app);
    display.RemoveItem(position);
    {
      const Flagged removing(app.removingEntry);
      SelectDisplayEntry(app, position == 0 ? 0 : position - 1);
    }
    if (lists.DisplayStands()) {
      display.SetFocus();
      RaiseCount(app, -1);
      app.platform.events.Yield();
      SetDisplayListExtent(app);
    }
  }
  app.platform.events.Yield();
  UpdateEnableState(app);
}

void ZapDisplayList(App& app) {
  app.listLoading.GiveUp();
  EmptyDisplayList(app);
}

void EmptyDisplayList(App& app) {
  WPaper2Window& window = app.WPaper2;
  app.displays.AskForPicture("");
  app.displays.AskForWords("");
  app.displays.ForgetKept();
  window.LstRight.Clear();
  window.lblCount.Caption = "0";
  window.CurrentPicture.Caption = "";
  app.CurrentIndex = 0;
  UpdateStatusBar(app, "", false);
  app.SlideShowRestart = true;
  window.mnuSlideShowRunSlideShow.Click();
  window.Image1.Visible = false;
  window.Image1.Move(0, 0, window.Picture1.ScaleWidth(), window.Picture1.ScaleHeight());
  window.Image1.Picture = Picture();
  window.Image1.Visible = true;
  ReadNeighboursAhead(app);
  UpdateEnableState(app);
  app.platform.events.Yield();
}

void MoveDisplayEntryDown(App& app) {
  const ListBox& list = app.WPaper2.LstRight;
  if (list.ListIndex() < 0 || list.ListIndex() == list.ListCount() - 1) return;
  MoveDisplayEntry(app, 1);
}

void MoveDisplayEntryUp(App& app) {
  if (app.WPaper2.LstRight.ListIndex() <= 0) return;
  MoveDisplayEntry(app, -1);
}

void NextImage(App& app) {
  if (!HasNeighbours(app)) return;
  app.CurrentIndex = ToInt32(std::int64_t{app.CurrentIndex} + 1);
  if (Val(app.WPaper2.lblCount.Caption.Get()) < app.CurrentIndex || IsBeyondList(app)) app.CurrentIndex = 1;
  SelectDisplayEntry(app, app.CurrentIndex - 1);
}

void PreviousImage(App& app) {
  if (!HasNeighbours(app)) return;
  app.CurrentIndex = ToInt32(std::int64_t{app.CurrentIndex} - 1);
  if (app.CurrentIndex < 1) app.CurrentIndex = ToInt32(Val(app.WPaper2.lblCount.Caption.Get()));
  if (IsBeyondList(app)) app.CurrentIndex = app.WPaper2.LstRight.ListCount();
  SelectDisplayEntry(app, app.CurrentIndex - 1);
}

void SetSelectionListExtent(App& app) {
  SetListExtent(app, app.WPaper2.LstLeft);
}
void SetDisplayListExtent(App& app) {
  SetListExtent(app, app.WPaper2.LstRight);
}

}  // namespace lumidex
