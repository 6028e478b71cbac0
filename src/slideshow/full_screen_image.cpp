#include "slideshow/full_screen_image.h"

#include "base/run_time_error.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmSlideShowFullScreen.h"
#include "imaging/fit.h"
#include "imaging/working_image.h"

namespace lumidex {

void ShowFullScreenImage(App& app) {
  frmSlideShowFullScreenWindow& window = app.frmSlideShowFullScreen;
  const std::string name = app.WPaper2.LstRight.Text();
  const std::int16_t boxWidth = ToInt16(static_cast<double>(window.picImage.ScaleWidth()));
  const std::int16_t boxHeight = ToInt16(static_cast<double>(window.picImage.ScaleHeight()));
  window.imgImage.Visible = false;
  // The control has no picture after a file that can't be read: the screen stays black for that slide.
  Picture shown;
  IgnoreError([&] { shown = app.checkjpg.Picture1.Picture(); });
  window.imgImage.Picture = shown;
  app.CurrentImagePath = name;
  std::int16_t width = 0, height = 0;
  GetImageInfo(app, name, width, height, app.ImageBitsPerPixel);
  // In the yield another step has shown a picture of another size.
  if (!(window.imgImage.Picture == shown)) return;
  FitToArea(width, height, boxWidth, boxHeight);
  const auto centred = [](std::int16_t box, std::int16_t side) {
    return static_cast<float>(box) / 2.0F - static_cast<float>(side) / 2.0F;
  };
  window.imgImage.Move(centred(boxWidth, width), centred(boxHeight, height), width, height);
  window.lblFileName.Caption = app.CurrentImagePath;
  window.imgImage.Visible = true;
  app.platform.events.Yield();
}

}  // namespace lumidex
