// The main window's items that turn, mirror and save the working image.

#include "forms/WPaper2.h"
#include "imaging/save_commands.h"
#include "imaging/turns.h"
#include "windows/windows.h"

namespace lumidex {

void WireEditing(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.mnuEditRotate90.OnClick = [&app] { RotateImage(app, Turn::Right, 1); };
  // There is no operation for a half turn.
  window.mnuEditRotate180.OnClick = [&app] { RotateImage(app, Turn::Right, 2); };
  window.mnuEditRotate270.OnClick = [&app] { RotateImage(app, Turn::Left, 1); };
  window.mnuEditFlipHorizontal.OnClick = [&app] { FlipImageHorizontally(app); };
  window.mnuEditFlipVertical.OnClick = [&app] { FlipImageVertically(app); };
  window.mnuFileSaveImageAs.OnClick = [&app] { SaveImageAs(app); };
  window.mnuFileSaveThumbnail.OnClick = [&app] { SaveThumbnailAs(app); };
}

}  // namespace lumidex
