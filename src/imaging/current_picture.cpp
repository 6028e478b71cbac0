#include "imaging/current_picture.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/enable_state.h"
#include "core/paths.h"
#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "imaging/fit.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

std::int16_t Zoomed(std::int16_t length, float zoom) {
  return ToInt16(static_cast<double>(static_cast<float>(length) * zoom));
}

}  // namespace

void DisplayCurrentImage(App& app, const std::string& path, bool alreadyLoaded, float zoom) {
  WPaper2Window& window = app.WPaper2;
  EventQueue& events = app.platform.events;
  const auto request = app.pictureRequests;
  UpdateEnableState(app);
  if (app.pictureRequests != request) return;
  window.Pointer = MousePointer::Hourglass;
  if (Trim(path).empty() || !FileExists(app, path)) {
    window.Pointer = MousePointer::Default;
    return;
  }
  window.Image1.Visible = false;
  if (!alreadyLoaded) LoadPictureFile(app, path);
  if (app.pictureRequests == request) {
    app.CurrentImagePath = path;
    GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
    events.Yield();
  }
  // Another picture was asked for in a yield, and stands there by now; or the list was emptied.
  if (app.pictureRequests != request) {
    window.Image1.Visible = true;
    window.Pointer = MousePointer::Default;
    return;
  }
  // Read after the yields: the window may have been resized in one. Its own redraw is over then, so this one
  // is for the new area too.
  const std::int16_t areaWidth = ToInt16(static_cast<double>(window.Picture1.ScaleWidth()));
  const std::int16_t areaHeight = ToInt16(static_cast<double>(window.Picture1.ScaleHeight()));
  app.NaturalWidth = app.ImageWidth;
  app.NaturalHeight = app.ImageHeight;
  window.StatusBar1.SetText(4, Number(zoom * 100.0F) + "%");
  app.ImageHeight = Zoomed(app.ImageHeight, zoom);
  app.ImageWidth = Zoomed(app.ImageWidth, zoom);
  FitToArea(app.ImageWidth, app.ImageHeight, areaWidth, areaHeight);
  if (app.frmPreferences.chkStretch.Value == 1) {
    window.Image1.Move(0, 0, areaWidth, areaHeight);
  } else {
    const auto centred = [](std::int16_t area, std::int16_t side) {
      return static_cast<float>(area) / 2.0F - static_cast<float>(side) / 2.0F;
    };
    window.Image1.Move(centred(areaWidth, app.ImageWidth), centred(areaHeight, app.ImageHeight),
                       app.ImageWidth, app.ImageHeight);
  }
  window.Image1.Visible = true;
  window.Pointer = MousePointer::Default;
  events.Yield();
}

void ReadNeighboursAhead(App& app) {
  const WPaper2Window& window = app.WPaper2;
  const ListBox& list = window.LstRight;
  const int count = list.ListCount(), current = list.ListIndex();
  std::vector<std::string> neighbours;
  for (const int step : {1, count - 1}) {
    if (current < 0 || count < 2) break;
    const std::string path = list.List((current + step) % count);
    if (path == list.Text() || (!neighbours.empty() && neighbours.front() == path)) continue;
    // Those come through the platform's own loader.
    if (InStr(UCase(path), ".GIF") == 0) neighbours.push_back(path);
  }
  const Size area{static_cast<int>(window.Picture1.ScaleWidth()),
                  static_cast<int>(window.Picture1.ScaleHeight())};
  const bool stretch = app.frmPreferences.chkStretch.Value == 1;
  const float zoom = GetZoomFactor(app);
  app.checkjpg.Picture1.ReadFilesAhead(std::move(neighbours), [=](Size full) {
    if (stretch) return area;
    Size shown = full;
    IgnoreError([&] {
      std::int16_t width = Zoomed(ToInt16(full.width), zoom), height = Zoomed(ToInt16(full.height), zoom);
      FitToArea(width, height, ToInt16(area.width), ToInt16(area.height));
      shown = {width, height};
    });
    return shown;
  });
}

}  // namespace lumidex
