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

// As it is now. Raises Overflow when a side leaves 16 bits.
PictureArea AreaOf(App& app) {
  const PictureBox& box = app.WPaper2.Picture1;
  return {{ToInt16(static_cast<double>(box.ScaleWidth())), ToInt16(static_cast<double>(box.ScaleHeight()))},
          app.frmPreferences.chkStretch.Value == 1};
}

// Gives Image1 the place of the picture whose size stands in the record.
void PlacePicture(App& app) {
  WPaper2Window& window = app.WPaper2;
  // Area and zoom are those of this moment: both may have changed in the yields of the display.
  const PictureArea area = AreaOf(app);
  app.lastArea = area;
  const auto areaWidth = static_cast<std::int16_t>(area.size.width);
  const auto areaHeight = static_cast<std::int16_t>(area.size.height);
  const float zoom = app.displays.TakePlace();
  app.NaturalWidth = app.ImageWidth;
  app.NaturalHeight = app.ImageHeight;
  window.StatusBar1.SetText(4, Number(zoom * 100.0F) + "%");
  app.ImageHeight = Zoomed(app.ImageHeight, zoom);
  app.ImageWidth = Zoomed(app.ImageWidth, zoom);
  FitToArea(app.ImageWidth, app.ImageHeight, areaWidth, areaHeight);
  if (area.stretches) {
    window.Image1.Move(0, 0, areaWidth, areaHeight);
  } else {
    const auto centred = [](std::int16_t room, std::int16_t side) {
      return static_cast<float>(room) / 2.0F - static_cast<float>(side) / 2.0F;
    };
    window.Image1.Move(centred(areaWidth, app.ImageWidth), centred(areaHeight, app.ImageHeight),
                       app.ImageWidth, app.ImageHeight);
  }
}

}  // namespace

void DisplayCurrentImage(App& app, std::string path, bool alreadyLoaded, float zoom) {
  WPaper2Window& window = app.WPaper2;
  EventQueue& events = app.platform.events;
  app.displays.AskForPlace(zoom);
  const auto before = app.displays.WatchPicture();
  UpdateEnableState(app);
  if (before.IsStale()) return;
  window.Pointer = MousePointer::Hourglass;
  if (Trim(path).empty() || !FileExists(app, path)) {
    window.Pointer = MousePointer::Default;
    return;
  }
  window.Image1.Visible = false;
  const auto request = alreadyLoaded ? app.displays.WatchPicture() : app.displays.AskForPicture(path);
  if (!alreadyLoaded) LoadPictureFile(app, path);
  if (!request.IsStale()) {
    app.CurrentImagePath = path;
    app.displays.AskForPlace();
    if (!alreadyLoaded) KeepWorkingFile(app, path);
    GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
    events.Yield();
  }
  // Another picture was asked for in a yield, and stands there by now; or the list was emptied.
  if (request.IsStale()) {
    window.Image1.Visible = true;
    window.Pointer = MousePointer::Default;
    return;
  }
  // A zoom chosen in these yields has placed the picture already.
  if (app.displays.IsMisplaced()) PlacePicture(app);
  window.Image1.Visible = true;
  window.Pointer = MousePointer::Default;
  events.Yield();
}

void ReadNeighboursAhead(App& app) {
  const WPaper2Window& window = app.WPaper2;
  const ListBox& list = window.LstRight;
  const int count = list.ListCount(), current = list.ListIndex();
  PathList neighbours;
  for (const int step : {1, count - 1}) {
    if (current < 0 || count < 2) break;
    const std::string path = list.List((current + step) % count);
    if (path == list.Text() || (neighbours.Count() > 0 && neighbours[0] == path)) continue;
    // Those come through the platform's own loader.
    if (InStr(UCase(path), ".GIF") == 0) neighbours.Add(path);
  }
  const auto shownSize = [area = AreaOf(app), zoom = GetZoomFactor(app)](Size full) {
    return ShownIn(area, full, zoom);
  };
  app.checkjpg.Picture1.ReadFilesAhead(DecodingPriority::Neighbours, std::move(neighbours),
                                       DecodingExtent::Shown, shownSize);
}

}  // namespace lumidex
