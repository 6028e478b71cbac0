#include "imaging/working_image.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"

namespace lumidex {

void LoadPictureFile(App& app, std::string path) {
  try {
    const auto request = app.displays.WatchPicture();
    app.checkjpg.Picture1.SetFileName(path);
    app.platform.events.Yield();
    if (request.IsStale()) return;
    KeepWorkingFile(app, path);
    ShowWorkingPicture(app);
    if (InStr(UCase(path), ".GIF") > 0) {
      app.WPaper2.Image1.Picture = app.platform.loader.LoadPicture(path);
    } else {
      ShowWorkingPicture(app);
    }
  } catch (const RunTimeError&) {
    // An unreadable file is shown as whatever stands there already.
  }
  app.platform.events.Yield();
}

void KeepWorkingFile(App& app, std::string path) {
  Gvbox& control = app.checkjpg.Picture1;
  if (control.FileName() == path) return;
  IgnoreError([&] { control.SetFileName(path); });
}

void ShowWorkingPicture(App& app) {
  Gvbox& control = app.checkjpg.Picture1;
  // Asked for in the yields of a reduced reading, such as a preview, it is the picture itself all the same.
  const int size = control.ThumbnailSize;
  control.ThumbnailSize = 0;
  Picture picture;
  try {
    picture = control.Picture();
  } catch (const RunTimeError&) {
    control.ThumbnailSize = size;
    throw;
  }
  control.ThumbnailSize = size;
  app.WPaper2.Image1.Picture = picture;
}

void ReadImageInfo(App& app, std::int16_t& width, std::int16_t& height, float& depth) {
  IgnoreError([&] {
    const Gvbox& control = app.checkjpg.Picture1;
    depth = control.BitsPerPixel();
    width = control.PictureWidth();
    height = control.PictureHeight();
  });
}

void GetImageInfo(App& app, std::string, std::int16_t& width, std::int16_t& height, float& depth) {
  ReadImageInfo(app, width, height, depth);
  app.platform.events.Yield();
}

}  // namespace lumidex
