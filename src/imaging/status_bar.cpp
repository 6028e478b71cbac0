#include "imaging/status_bar.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/file_type_table.h"
#include "imaging/proper_names.h"
#include "imaging/working_image.h"

namespace lumidex {

namespace {

// False when no type of file ends so.
bool ShowIconOf(App& app, std::string extension) {
  const int type = FileTypeOf(LCase(extension));
  if (type == 0) return false;
  app.WPaper2.StatusBar1.SetPicture(2,
                                    std::string(FileTypeTable[static_cast<std::size_t>(type - 1)].resource));
  app.platform.events.Yield();
  return true;
}

// False when the text ends in no known file type.
bool WriteStatusBar(App& app, std::string text, bool withImageInfo) {
  const std::string working = ProperCaseName(app, text);
  std::string name = working;
  std::string facts;
  if (withImageInfo) {
    const auto request = app.displays.WatchWords();
    std::int16_t width = app.ImageWidth, height = app.ImageHeight;
    float depth = app.ImageBitsPerPixel;
    ReadImageInfo(app, width, height, depth);
    GetImageInfo(app, working, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
    // What was asked for in the yield is told there already.
    if (request.IsStale()) return true;
    // A zoom chosen there has left the size on the screen.
    app.ImageWidth = width;
    app.ImageHeight = height;
    app.ImageBitsPerPixel = depth;
    name = ProperFileName(app, working);
    facts = Number(app.ImageWidth) + " X " + Number(app.ImageHeight) + " X " + Number(app.ImageBitsPerPixel);
  }
  app.WPaper2.StatusBar1.SetText(2, name);
  app.WPaper2.StatusBar1.SetText(3, facts);
  return text.empty() || ShowIconOf(app, Right(working, 4));
}

}  // namespace

void ShowFileTypeIcon(App& app, std::string extension) {
  if (!ShowIconOf(app, extension)) throw RunTimeError(ErrorNumber::InvalidCall);
}

void UpdateStatusBar(App& app, std::string text, bool withImageInfo) {
  if (!WriteStatusBar(app, text, withImageInfo)) throw RunTimeError(ErrorNumber::InvalidCall);
}

void UpdateStatusBarQuietly(App& app, std::string text, bool withImageInfo) {
  IgnoreError([&] { WriteStatusBar(app, text, withImageInfo); });
}

}  // namespace lumidex
