#include "imaging/turns.h"

#include "base/run_time_error.h"
#include "forms/checkjpg.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

void TellThatItCanNotBeRotated(App& app) {
  Message message;
  message.text = "This type of file cannot be rotated!";
  message.title = "Error while trying to rotate image";
  message.icon = MessageIcon::Exclamation;
  app.platform.dialogs.MsgBox(message);
}

// Runs `paint` on the working image in units of its pixels, in such a way that what is painted stays.
template <class Paint>
void PaintOver(App& app, Paint paint) {
  constexpr std::int32_t pixelUnits = 1;
  Gvbox& control = app.checkjpg.Picture1;
  const std::int32_t units = control.ScaleMode;
  if (units != pixelUnits) control.ScaleMode = pixelUnits;
  control.AutoRedraw = 0;
  control.RetainBitmap = control.Picture().Type() == PictureType::Bitmap ? 1 : 0;
  control.AutoRedraw = 1;
  paint(control);
  ShowWorkingPicture(app);
  if (units != pixelUnits) control.ScaleMode = units;
}

}  // namespace

void RotateImage(App& app, Turn turn, int quarters) {
  try {
    for (int done = 0; done < quarters; ++done) {
      app.checkjpg.Picture1.Rotate(static_cast<std::int16_t>(turn));
    }
    ShowWorkingPicture(app);
  } catch (const RunTimeError&) {
    TellThatItCanNotBeRotated(app);
  }
}

void FlipImageHorizontally(App& app) {
  PaintOver(app, [](Gvbox& control) {
    const float width = control.ScaleWidth(), height = control.ScaleHeight();
    control.PaintPicture(control.Picture(), width - 1, 0, -width, height, 0, 0, width, height);
  });
}

void FlipImageVertically(App& app) {
  PaintOver(app, [](Gvbox& control) {
    const float width = control.ScaleWidth(), height = control.ScaleHeight();
    control.PaintPicture(control.Picture(), 0, height - 1, width, -height, 0, 0, width, height);
  });
}

}  // namespace lumidex
