#include "imaging/adjustments.h"

#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmAdjustColorBalance.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "forms/frmBackground.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

Gvbox& FreshImage(App& app) {
  Gvbox& control = app.checkjpg.Picture1;
  const std::string path = control.FileName();
  control.SetFileName(path);
  return control;
}

std::int16_t Amount(const Slider& slider) {
  return ToInt16(slider.Value.Get());
}

}  // namespace

void PrepareAdjustmentDialog(App& app, AdjustmentWindow& dialog) {
  dialog.Icon = app.WPaper2.Icon.Get();
  dialog.Image1.Picture = app.frmBackground.Image1.Picture.Get();
  ResetPreviews(app, dialog);
}

void ResetPreviews(App& app, AdjustmentWindow& dialog) {
  dialog.imgOriginal.Picture = app.WPaper2.Image1.Picture.Get();
  dialog.imgModified.Picture = app.WPaper2.Image1.Picture.Get();
}

void ApplyColorBalance(App& app) {
  frmAdjustColorBalanceWindow& dialog = app.frmAdjustColorBalance;
  Gvbox& control = FreshImage(app);
  control.ColorBalance(Amount(dialog.HScroll3(0)), Amount(dialog.HScroll3(1)), Amount(dialog.HScroll3(2)));
}

void ApplyBrightnessAndContrast(App& app) {
  frmAdjustContrastandBrightnessWindow& dialog = app.frmAdjustContrastandBrightness;
  Gvbox& control = FreshImage(app);
  control.Brightness(Amount(dialog.HScroll1));
  control.Contrast(Amount(dialog.HScroll2));
}

void PreviewWorkingImage(App& app, AdjustmentWindow& dialog) {
  dialog.imgModified.Picture = app.checkjpg.Picture1.Picture();
}

void AcceptAdjustment(App& app, AdjustmentWindow& dialog) {
  ShowWorkingPicture(app);
  dialog.Hide();
}

}  // namespace lumidex
