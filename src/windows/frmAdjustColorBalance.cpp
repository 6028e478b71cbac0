// The events of the dialog that changes the balance of the colours.

#include "forms/frmAdjustColorBalance.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "imaging/adjustments.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void WriteValues(frmAdjustColorBalanceWindow& dialog) {
  dialog.lblRedBalance.Caption = Number(dialog.HScroll3(0).Value.Get());
  dialog.lblGreenBalance.Caption = Number(dialog.HScroll3(1).Value.Get());
  dialog.lblBlueBalance.Caption = Number(dialog.HScroll3(2).Value.Get());
}

}  // namespace

void WirefrmAdjustColorBalance(App& app) {
  frmAdjustColorBalanceWindow& dialog = app.frmAdjustColorBalance;
  dialog.OnLoad = [&] { PrepareAdjustmentDialog(app, dialog); };
  dialog.OnActivate = [&] { ResetPreviews(app, dialog); };
  for (auto& slider : dialog.HScroll3) {
    slider->OnScroll = [&] { WriteValues(dialog); };
    slider->OnChange = [&] {
      ApplyColorBalance(app);
      WriteValues(dialog);
      PreviewWorkingImage(app, dialog);
    };
  }
  dialog.Command1.OnClick = [&] {
    for (auto& slider : dialog.HScroll3) slider->Value = 0;
  };
  dialog.Command2.OnClick = [&] { AcceptAdjustment(app, dialog); };
  app.WPaper2.mnuEditImageColorBalances.OnClick = [&] { dialog.Show(Modality::Modal); };
}

}  // namespace lumidex
