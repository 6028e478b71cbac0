// The events of the dialog that changes brightness and contrast.

#include "forms/frmAdjustContrastandBrightness.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "imaging/adjustments.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

// Only the value of the slider that moved is written.
void WireSlider(App& app, Slider& slider, Label& value) {
  const auto writeValue = [&] { value.Caption = Number(slider.Value.Get()); };
  slider.OnScroll = writeValue;
  slider.OnChange = [&app, writeValue] {
    ApplyBrightnessAndContrast(app);
    writeValue();
    PreviewWorkingImage(app, app.frmAdjustContrastandBrightness);
  };
}

}  // namespace

void WirefrmAdjustContrastandBrightness(App& app) {
  frmAdjustContrastandBrightnessWindow& dialog = app.frmAdjustContrastandBrightness;
  dialog.OnLoad = [&] { PrepareAdjustmentDialog(app, dialog); };
  dialog.OnActivate = [&] { ResetPreviews(app, dialog); };
  WireSlider(app, dialog.HScroll1, dialog.lblBrightness);
  WireSlider(app, dialog.HScroll2, dialog.lblContrast);
  dialog.Command1.OnClick = [&] {
    dialog.HScroll1.Value = 0;
    dialog.HScroll2.Value = 0;
  };
  dialog.Command2.OnClick = [&] { AcceptAdjustment(app, dialog); };
  app.WPaper2.mnuEditImageContrast.OnClick = [&] { dialog.Show(Modality::Modal); };
}

}  // namespace lumidex
