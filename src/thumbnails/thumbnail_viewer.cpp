#include "thumbnails/thumbnail_viewer.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "base/widths.h"
#include "core/still_open.h"
#include "forms/WPaper2.h"
#include "forms/frmThumbNail.h"
#include "imaging/proper_names.h"
#include "imaging/working_image.h"
#include "lists/image_lists.h"
#include "thumbnails/thumbnail_page.h"

namespace lumidex {
namespace {

constexpr float margin = 10, cellPitch = 80;
constexpr int watchPeriod = 5000;

enum Panel { NamePanel = 2, SizePanel, LengthPanel, PlacePanel };

int CellsIn(float length) {
  return std::max(0, static_cast<int>(std::floor(length / cellPitch)));
}

}  // namespace

void SetUpThumbnailView(App& app) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  const StillOpen isOpen(viewer);
  VScrollBar& bar = viewer.VScroll1;
  bar.Top = 0;
  bar.Left = viewer.ScaleWidth() - bar.Width;
  bar.Height = viewer.ScaleHeight() - viewer.StatusBar1.Height;
  const double count = Val(app.WPaper2.lblCount.Caption.Get());
  bar.Min = 0;
  bar.Max = ToInt16(count - 1);
  viewer.ThumbnailsPerPage = ToInt16(CellsIn(viewer.ScaleHeight() - viewer.StatusBar1.Height - margin) *
                                     CellsIn(viewer.ScaleWidth() - bar.Width - margin));
  bar.SmallChange = 1;
  bar.LargeChange = std::max<int>(1, viewer.ThumbnailsPerPage);
  // Nothing may be selected.
  if (count < viewer.TopIndex || viewer.TopIndex < 0) viewer.TopIndex = 0;
  bar.Value = static_cast<int>(viewer.TopIndex);
  app.platform.events.Yield();
  if (!isOpen) return;
  UnloadThumbnailCells(app, viewer.ThumbnailsPerPage);
  FillThumbnailPage(app);
  if (!isOpen) return;
  viewer.Timer4.Interval = watchPeriod;
  viewer.Timer4.Enabled = true;
  ShowThumbnailStatus(app, ToInt16(viewer.TopIndex + 1));
}

void ShowThumbnailStatus(App& app, std::int16_t position) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  const StillOpen isOpen(viewer);
  const std::string path = app.WPaper2.LstRight.List(position - 1);
  GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
  if (!isOpen) return;
  StatusBar& bar = viewer.StatusBar1;
  bar.SetText(NamePanel, ProperFileName(app, path));
  bar.SetText(SizePanel, Number(app.ImageWidth) + " X " + Number(app.ImageHeight) + " X " +
                             Number(app.ImageBitsPerPixel));
  const auto facts = app.platform.files.Look(path);
  bar.SetText(LengthPanel, facts ? DigitsInGroups(static_cast<std::int64_t>(facts->size)) : std::string());
  bar.SetText(PlacePanel,
              DigitsInGroups(viewer.TopIndex + position) + " of " +
                  DigitsInGroups(static_cast<std::int64_t>(Val(app.WPaper2.lblCount.Caption.Get()))));
}

void TakeThumbnail(App& app, int cell) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  ListBox& list = app.WPaper2.LstRight;
  const int entry = viewer.TopIndex + cell - 1;
  if (viewer.PageFilling || entry >= list.ListCount()) return;
  list.SetListIndex(entry);
  list.SetSelected(entry, true);
  DisplayListClick(app);
  viewer.mnuCloseViewer.Click();
}

void ScrollThumbnails(App& app) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  const StillOpen isOpen(viewer);
  VScrollBar& bar = viewer.VScroll1;
  if (!viewer.ViewerReady) return;
  bar.Enabled = false;
  viewer.TopIndex = ToInt16(bar.Value.Get());
  UnloadThumbnailCells(app, viewer.ThumbnailsPerPage);
  FillThumbnailPage(app);
  if (!isOpen) return;
  bar.Enabled = true;
  if (viewer.Visible() && bar.Visible && bar.Enabled) bar.SetFocus();
}

}  // namespace lumidex
