// The events of the thumbnail viewer, and its opening.

#include "forms/frmThumbNail.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/still_open.h"
#include "forms/WPaper2.h"
#include "forms/frmConvertFileName.h"
#include "thumbnails/thumbnail_viewer.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void Form_Load(App& app) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  ++viewer.Openings;
  viewer.ViewerReady = false;
  // A viewer that was closed while it filled a page has not got to say so.
  viewer.PageFilling = false;
  viewer.StatusBar1.Visible = false;
}

void Form_Activate(App& app) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  viewer.Icon = app.WPaper2.Icon.Get();
  // Coming back to the window while its first page is filled begins no other.
  if (!viewer.ViewerReady && !viewer.PageFilling) {
    const StillOpen isOpen(viewer);
    viewer.TopIndex = app.WPaper2.LstRight.ListIndex();
    SetUpThumbnailView(app);
    if (!isOpen) return;
    viewer.ViewerReady = true;
  }
  viewer.StatusBar1.Visible = true;
}

void Timer4_Timer(App& app) {
  const auto size = ToInt16(static_cast<double>(app.platform.windows.ScreenWidth() / twipsPerPixel));
  if (app.frmThumbNail.LastScreenSize != size) app.frmThumbNail.LastScreenSize = size;
}

void mnuPictureThumbNailViewer_Click(App& app) {
  // Both fill the second scratch control.
  if (app.frmConvertFileName.Converting) return;
  if (Val(app.WPaper2.lblCount.Caption.Get()) >= 1) app.frmThumbNail.Show(Modality::Modal);
}

}  // namespace

void WirefrmThumbNail(App& app) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  viewer.OnLoad = [&] { Form_Load(app); };
  viewer.OnActivate = [&] { Form_Activate(app); };
  viewer.OnUnload = [&](bool&) { viewer.Timer4.Enabled = false; };
  viewer.imgThumbNail.Wire([&app](ImageBox& image, int cell) {
    image.OnClick = [&app, cell] { ShowThumbnailStatus(app, ToInt16(cell)); };
    image.OnDblClick = [&app, cell] { TakeThumbnail(app, cell); };
  });
  viewer.lblThumbNail.Wire([&app, &viewer](Label& label, int cell) {
    label.OnClick = [&app, &viewer, cell] { ShowThumbnailStatus(app, ToInt16(viewer.TopIndex + cell)); };
  });
  viewer.VScroll1.OnChange = [&] { ScrollThumbnails(app); };
  viewer.mnuCloseViewer.OnClick = [&] { viewer.Unload(); };
  viewer.mnupopup.Wire([&viewer](MenuItem& item, int index) {
    item.OnClick = [&viewer, index] { viewer.PopupChoice = static_cast<std::int16_t>(index); };
  });
  viewer.mnupopup7.OnClick = [&] { viewer.PopupChoice = 7; };
  viewer.Timer4.OnTimer = [&] { Timer4_Timer(app); };
  app.WPaper2.mnuPictureThumbNailViewer.OnClick = [&] { mnuPictureThumbNailViewer_Click(app); };
}

}  // namespace lumidex
