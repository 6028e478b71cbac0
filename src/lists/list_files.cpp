#include "lists/list_files.h"

#include "base/delimited.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/enable_state.h"
#include "core/list_text.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "lists/image_lists.h"

namespace lumidex {
namespace {

constexpr const char* standardListName = "Lumidex.Lst";
constexpr int entriesBetweenYields = 50;

using namespace list_text;

bool Holds(const std::string& item, const char* text) {
  return InStr(item, text) > 0;
}

std::int32_t NumberBehindEqualSign(const std::string& item) {
  return ToInt32(Val(Mid(item, InStr(item, "=") + 1)));
}

// The position before the bar is not read back. The end line has no bar and no reader stops at it: it becomes
// an entry without its first character.
std::string PathOfEntry(const std::string& item) {
  return Right(item, Len(item) - InStr(item, "|") - 1);
}

void ReadEntries(App& app, const ListLoad& load, DelimitedReader& reader) {
  Label& count = app.WPaper2.lblCount;
  const std::int32_t entries = app.ListFilePictureCount;
  for (std::int32_t i = 0; i < entries; ++i) {
    const std::string item = reader.Next();
    if (Holds(item, endLine)) count.Caption = Number(i);
    app.WPaper2.LstRight.AddItem(PathOfEntry(item));
    count.Caption = Number(Val(count.Caption.Get()) + 1);
    if ((i + 1) % entriesBetweenYields == 0) app.platform.events.Yield();
    if (load.GivesWay()) return;
  }
}

// False when the file is no list.
bool ReadWholeList(App& app, const ListLoad& load, DelimitedReader reader) {
  if (!Holds(reader.Next(), titleLine)) return false;
  std::string item = reader.Next();
  if (Holds(item, countKey)) app.ListFilePictureCount = NumberBehindEqualSign(item);
  item = reader.Next();
  if (Holds(item, indexKey)) app.CurrentIndex = std::max(0, NumberBehindEqualSign(item));
  app.WPaper2.CurrentPicture.Caption = Number(app.CurrentIndex);
  if (!reader.AtEnd()) ReadEntries(app, load, reader);
  return true;
}

void ReadList(App& app, ListLoad& load, std::string path) {
  const bool isList = WorkOn(
      path, [&] { return ReadWholeList(app, load, DelimitedReader(app.platform.files.ReadAll(path))); });
  if (load.GivesWay()) return;
  load.IsRead();
  if (!isList) return;
  if (app.ListFilePictureCount > 0 && app.CurrentIndex == 0) app.CurrentIndex = 1;
  app.platform.events.Yield();
}

bool MayBeWritten(const App& app) {
  return app.WPaper2.LstRight.ListCount() > 0 && !app.listLoading.isPart;
}

}  // namespace

void SaveStandardList(App& app) {
  if (MayBeWritten(app)) app.platform.files.WriteOver(app.AppPath + standardListName, ListFileText(app));
}

void SaveUserList(App& app, std::string path) {
  if (MayBeWritten(app)) app.platform.files.WriteAll(path, ListFileText(app));
}

void LoadStandardList(App& app, ListLoad& load) {
  const std::string path = app.AppPath + standardListName;
  if (load.GivesWay()) return;
  if (FileExists(app, path)) {
    ReadList(app, load, path);
  } else {
    load.IsRead();
  }
}

void LoadUserList(App& app, ListLoad& load, std::string path) {
  EmptyDisplayList(app);
  if (!load.GivesWay()) ReadList(app, load, path);
}

void LeaveCommandLineMode(App& app) {
  app.CommandLineMode = false;
  app.ListFileFlag = 0;
}

void FinishListLoad(App& app) {
  LeaveCommandLineMode(app);
  const ListLoading& loading = app.listLoading;
  if (app.ListFilePictureCount <= 0 || loading.isPart) return;
  const std::uint64_t loadsSoFar = loading.begun;
  ListBox& list = app.WPaper2.LstRight;
  if (app.CurrentIndex < 1) app.CurrentIndex = 1;
  list.SetSelected(app.CurrentIndex - 1, true);
  // Emptied or loaded anew in the yields of the picture: what follows has been done for that list.
  if (loading.begun != loadsSoFar) return;
  app.CurrentImagePath = list.Text();
  app.WPaper2.CurrentPicture.Caption = Number(app.CurrentIndex);
  UpdateEnableState(app);
}

}  // namespace lumidex
