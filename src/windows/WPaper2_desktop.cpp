// The main window's items that hand the current picture to the desktop.

#include "forms/WPaper2.h"
#include "imaging/clipboard.h"
#include "imaging/wallpaper.h"
#include "windows/windows.h"

namespace lumidex {

void WireDesktop(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.mnuPictureWallPaperCentered.OnClick = [&] { SetWallpaperCentered(app); };
  window.mnuPictureWallPaperStretched.OnClick = [&] { SetWallpaperStretched(app); };
  window.mnuPictureWallPaperTiled.OnClick = [&] { SetWallpaperTiled(app); };
  window.mnuPictureWallPaperClear.OnClick = [&] { ClearWallpaper(app); };
  window.mnuEditCopyPictureLink.OnClick = [&] { CopyPictureLink(app); };
  window.mnuPictureCopy.OnClick = [&] { CopyPicture(app); };
}

}  // namespace lumidex
