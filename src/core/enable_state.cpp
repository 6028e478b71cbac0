#include "core/enable_state.h"

#include <array>

#include "base/text.h"
#include "forms/WPaper2.h"

namespace lumidex {
namespace {

constexpr std::int32_t emptyListColour = 0x808080;
constexpr std::int32_t listColour = 0xFFC0C0;  // blue in the high byte

void EnableForList(ListBox& list, std::initializer_list<Control*> controls) {
  const bool filled = list.ListCount() > 0;
  list.BackColor = filled ? listColour : emptyListColour;
  for (Control* control : controls) control->Enabled = filled;
}

void EnableForPictures(WPaper2Window& window, bool enabled) {
  const std::array<Control*, 21> items = {
      &window.mnuEdit,
      &window.mnuPicture,
      &window.mnuPictureNext,
      &window.mnuPicturePrevious,
      &window.mnuFileSaveImageAs,
      &window.mnuFileSaveThumbnail,
      &window.mnuSlideShow,
      &window.mnuFileSave,
      &window.mnuFileSaveAs,
      &window.mnuFileClear,
      &window.mnuEditRotateImage,
      &window.mnuPictureCopy,
      &window.mnuEditFlipImage,
      &window.mnuEditZoom,
      &window.mnuEditImageContrast,
      &window.mnuEditImageColorBalances,
      &window.mnuPictureViewer,
      &window.mnuPictureThumbNailViewer,
      &window.mnuPictureImageSummary,
      &window.mnuPictureDesktopWallpaper,
      &window.mnuFileProperties,
  };
  for (Control* item : items) item->Enabled = enabled;
  for (const int position : {3, 5}) window.Toolbar1.SetEnabled(position, enabled);
  if (!enabled) window.StatusBar1.SetPicture(2, "");
  for (int position = 6; position <= 16; ++position) window.Toolbar1.SetEnabled(position, enabled);
  window.Toolbar1.SetEnabled(18, enabled);
  if (!enabled) window.Image1.Picture = Picture();
}

}  // namespace

void UpdateEnableState(App& app) {
  WPaper2Window& window = app.WPaper2;
  EnableForList(window.LstRight, {&window.mnuPictureRemoveOne, &window.mnuPictureRemoveAll,
                                  &window.cmdLeftOne, &window.cmdLeftAll, &window.cmdUp, &window.cmdDown});
  EnableForList(window.LstLeft, {&window.mnuPictureAddOne, &window.mnuPictureAddAll, &window.cmdRightOne,
                                 &window.cmdRightAll});
  EnableForPictures(window, Val(window.lblCount.Caption.Get()) != 0);
  app.platform.events.Yield();
}

}  // namespace lumidex
