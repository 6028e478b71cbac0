#include "thumbnails/thumbnail_page.h"

#include <algorithm>
#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "core/still_open.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmThumbNail.h"
#include "imaging/proper_names.h"
#include "thumbnails/thumbnail.h"

namespace lumidex {
namespace {

constexpr int acrossStep = 82, downStep = 80, columnWidth = 80, firstX = 8, firstY = 1;
constexpr float labelIndent = 4, labelRise = 20;
// How often the image control may ask for another try at one cell.
constexpr int mostRetries = 3;

int EntryCount(const App& app) {
  return static_cast<int>(Val(app.WPaper2.lblCount.Caption.Get()));
}

// Fills one page; knows when the viewer was closed in a yield, and then touches nothing any more.
class PageFiller {
 public:
  explicit PageFiller(App& app) : app_(app), viewer_(app.frmThumbNail), isOpen_(viewer_) {}

  void Fill() {
    viewer_.PageFilling = true;
    // While a later page is filled the bar stays as whoever asked for the page has set it.
    if (!viewer_.ViewerReady) viewer_.VScroll1.Enabled = EntryCount(app_) > 1;
    viewer_.mnuCloseViewer.Enabled = false;
    PlacePattern();
    if (!Serve()) return;
    if (EntryCount(app_) > viewer_.TopIndex && !FillCells()) return;
    viewer_.mnuCloseViewer.Enabled = true;
    viewer_.PageFilling = false;
  }

 private:
  enum class After { GoOn, LastEntry, Closed };

  // Serves events; false when the viewer was closed.
  bool Serve() {
    app_.platform.events.Yield();
    return static_cast<bool>(isOpen_);
  }

  void PlacePattern() {
    ImageBox& image = viewer_.imgThumbNail(0);
    Label& label = viewer_.lblThumbNail(0);
    label.Top = image.Top + image.Height - labelRise;
    label.Left = image.Left + labelIndent;
    label.Caption = "";
    label.BringToFront();
    image.Visible = false;
    label.Visible = false;
  }

  // False when the viewer was closed.
  bool FillCells() {
    const int perRow =
        static_cast<int>(std::floor((viewer_.ScaleWidth() - viewer_.VScroll1.Width) / columnWidth));
    if (perRow < 1) return true;
    for (int first = 1; first <= viewer_.ThumbnailsPerPage; first += perRow) {
      int x = firstX;
      for (int column = 0; column < perRow; ++column) {
        const int cell = first + column;
        MakeCell(cell, x, firstY + first / perRow * downStep);
        x += acrossStep;
        if (!Serve()) return false;
        const After after = FillCell(cell);
        if (after != After::GoOn) return after == After::LastEntry;
      }
    }
    return true;
  }

  // Errors are ignored statement by statement.
  void MakeCell(int cell, int x, int y) {
    IgnoreError([&] { viewer_.imgThumbNail.Load(cell); });
    IgnoreError([&] { viewer_.lblThumbNail.Load(cell); });
    IgnoreError([&] {
      ImageBox& image = viewer_.imgThumbNail(cell);
      Label& label = viewer_.lblThumbNail(cell);
      label.BringToFront();
      image.Picture = app_.checkjpg.imgEmpty.Picture.Get();
      label.Caption = "";
      image.Left = static_cast<float>(x);
      label.Left = static_cast<float>(x) + labelIndent;
      image.Top = static_cast<float>(y);
      label.Top = static_cast<float>(y) + image.Height - labelRise;
      image.Visible = true;
      label.Visible = true;
    });
  }

  After FillCell(int cell) {
    std::string path;
    for (int tries = 0; tries <= mostRetries; ++tries) {
      path = app_.WPaper2.LstRight.List(cell + viewer_.TopIndex - 1);
      if (!FileExists(app_, path)) {
        ShowPicture(cell, {});
        if (!Serve()) return After::Closed;
        break;
      }
      if (AsksForAnotherTry(path) && tries < mostRetries) continue;
      if (!Serve()) return After::Closed;
      ShowPicture(cell, {});
      // What could not be made leaves the picture of the cell before there.
      ShowPicture(cell, viewer_.imgThumbNail(0).Picture);
      if (!Serve()) return After::Closed;
      break;
    }
    IgnoreError([&] { viewer_.lblThumbNail(cell).Caption = ProperFileName(app_, path); });
    return EntryCount(app_) == cell + viewer_.TopIndex ? After::LastEntry : After::GoOn;
  }

  bool AsksForAnotherTry(const std::string& path) {
    try {
      MakeThumbnail(app_, path);
    } catch (const RunTimeError& error) {
      return error.Number() == ErrorNumber::ImageControlRetry;
    }
    return false;
  }

  void ShowPicture(int cell, const Picture& picture) {
    IgnoreError([&] { viewer_.imgThumbNail(cell).Picture = picture; });
  }

  App& app_;
  frmThumbNailWindow& viewer_;
  const StillOpen<frmThumbNailWindow> isOpen_;
};

}  // namespace

void FillThumbnailPage(App& app) {
  PageFiller(app).Fill();
}

void UnloadThumbnailCells(App& app, int count) {
  frmThumbNailWindow& viewer = app.frmThumbNail;
  viewer.ClearDrawing();
  // A row that was begun is finished, so that a page may have more cells than it was to have.
  for (int cell = std::max({count, viewer.imgThumbNail.Last(), viewer.lblThumbNail.Last()}); cell >= 1;
       --cell) {
    IgnoreError([&] { viewer.imgThumbNail.Unload(cell); });
    IgnoreError([&] { viewer.lblThumbNail.Unload(cell); });
  }
}

}  // namespace lumidex
