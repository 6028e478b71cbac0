#include "imaging/zoom_viewer.h"

#include <algorithm>
#include <cstdio>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/still_open.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

enum Panel { ColourPanel = 2, SizePanel, FileSizePanel, ZoomPanel, LocationPanel };

std::string ThreeDigits(std::int16_t value) {
  return Right("000" + Number(value), 3);
}

void ShowZoom(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const float percent = viewer.Gvbox1.ZoomLevel * 100.0F;
  viewer.StatusBar1.SetText(ZoomPanel, "Zoom= " + Number(ToInt32(static_cast<double>(percent))));
}

// `namedLevel` is the item whose caption a refusal tells.
void Zoom(App& app, int level, int namedLevel) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const float oldZoom = viewer.Gvbox1.ZoomLevel;
  try {
    viewer.Gvbox1.ZoomLevel = frmZoomViewWindow::FactorOf(level);
    TickZoomLevel(viewer, level);
    ShowImageNailInfo(app, viewer.ImageFilePath);
    app.platform.events.Yield();
  } catch (const RunTimeError&) {
    Message message;
    message.text = "Zoom level is too large!  Remaining at " + Number(oldZoom * 100.0F) +
                   "% zoom.  Please try a zoom setting lower than " +
                   viewer.mnuZoomLevel(namedLevel).Caption.Get() + ".";
    app.platform.dialogs.MsgBox(message);
    viewer.Gvbox1.ZoomLevel = oldZoom;
  }
}

}  // namespace

void ShowImageNailInfo(App& app, std::string path) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const StillOpen isOpen(viewer);
  GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
  if (!isOpen) return;
  viewer.StatusBar1.SetText(SizePanel, Number(app.ImageWidth) + " X " + Number(app.ImageHeight) + " X " +
                                           Number(app.ImageBitsPerPixel));
  const auto facts = app.platform.files.Look(path);
  viewer.StatusBar1.SetText(
      FileSizePanel,
      "File Size: " + (facts ? DigitsInGroups(static_cast<std::int64_t>(facts->size)) : std::string()));
  ShowZoom(app);
}

void SplitColor(std::int32_t colour, std::int16_t& red, std::int16_t& green, std::int16_t& blue) {
  red = ToInt16(colour & 255);
  green = ToInt16((colour & 65280) / 256);
  blue = ToInt16((colour & 16711680) / 65536);
}

void FitZoomViewer(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.State = WindowState::Maximized;
  viewer.Gvbox1.Top = viewer.tlbZoom.Visible ? viewer.tlbZoom.Height.Get() : 0.0F;
  viewer.Gvbox1.Left = 0;
  SizeZoomPicture(app);
}

void SizeZoomPicture(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.Gvbox1.Width = viewer.ScaleWidth();
  viewer.Gvbox1.Height = viewer.ScaleHeight() - viewer.StatusBar1.Height - viewer.Gvbox1.Top;
}

void TickZoomLevel(frmZoomViewWindow& viewer, int level) {
  for (int i = 1; i <= frmZoomViewWindow::mostLevels; ++i) viewer.mnuZoomLevel(i).Checked = false;
  viewer.mnuZoomLevel(level).Checked = true;
  viewer.TickedLevel = static_cast<std::int16_t>(level);
}

void SelectZoomFromMenu(App& app, int level) {
  Zoom(app, level, level);
}

void PressZoomButton(App& app, int button) {
  if (button == 1) {
    app.frmZoomView.Unload();
  } else {
    Zoom(app, button - 1, button);
  }
}

void ToggleZoomToolbar(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.tlbZoom.Visible = !viewer.tlbZoom.Visible;
  viewer.mnuZoomToolbar.Checked = viewer.tlbZoom.Visible;
  FitZoomViewer(app);
}

void ToggleZoomFullScreen(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.FullScreenOn = !viewer.FullScreenOn;
  if (viewer.FullScreenOn) viewer.SavedCaption = viewer.Caption.Get();
  ShowZoomFullScreenState(app);
  viewer.State = WindowState::Maximized;
}

void ShowZoomFullScreenState(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const bool on = viewer.FullScreenOn;
  viewer.Caption = on ? std::string() : static_cast<const std::string&>(viewer.SavedCaption);
  for (MenuItem* menu : {&viewer.mnuPicture, &viewer.mnuView, &viewer.mnuZoom}) menu->Visible = !on;
}

void ScrollByKey(App& app, int keyCode) {
  constexpr int left = 37, up = 38, right = 39, down = 40;
  constexpr std::int32_t step = 20;
  Gvbox& picture = app.frmZoomView.Gvbox1;
  if (keyCode == left) picture.SetScrollX(0);
  if (keyCode == right) picture.SetScrollX(std::min(step, picture.ScrollMaxX()));
  if (keyCode == up) picture.SetScrollY(0);
  if (keyCode == down) picture.SetScrollY(std::min(step, picture.ScrollMaxY()));
  app.platform.events.Yield();
}

void ReadOutPixel(App& app, float x, float y) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const std::int32_t colour = viewer.Gvbox1.PixelColor(x, y);
  std::int16_t red = 0, green = 0, blue = 0;
  SplitColor(colour, red, green, blue);
  char digits[16];
  std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(colour));
  viewer.StatusBar1.SetText(ColourPanel, "Color: " + Right("000000" + std::string(digits), 6) +
                                             " RGB=" + ThreeDigits(red) + "," + ThreeDigits(green) + "," +
                                             ThreeDigits(blue));
  const ScaleMode remembered = viewer.Scale;
  viewer.Scale = ScaleMode::Pixels;
  const auto place = [](float twips, std::int32_t scroll) {
    return Number(static_cast<double>(twips) / static_cast<double>(twipsPerPixel) + scroll);
  };
  viewer.StatusBar1.SetText(LocationPanel, "Location: " + place(x, viewer.Gvbox1.ScrollX()) + " X " +
                                               place(y, viewer.Gvbox1.ScrollY()));
  viewer.Scale = remembered;
}

void ZoomDown(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  const StillOpen isOpen(viewer);
  const Gvbox& picture = viewer.Gvbox1;
  viewer.Picture1.Move(picture.Left, picture.Top, picture.Width, picture.Height);
  viewer.Picture1.Picture = picture.Picture();
  viewer.Picture1.Visible = true;
  for (float factor = picture.ZoomLevel; factor >= 1.0F; factor -= 0.01F) {
    viewer.Gvbox1.ZoomLevel = factor;
    viewer.Picture1.Picture = picture.Picture();
    app.platform.events.Yield();
    if (!isOpen) return;
    viewer.Picture1.Picture = picture.Picture();
    ShowZoom(app);
    app.platform.events.Yield();
    if (!isOpen) return;
  }
  viewer.Picture1.Visible = false;
}

}  // namespace lumidex
