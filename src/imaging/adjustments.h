#pragma once
// What the two adjustment dialogs do to the working image. Each preview starts from the file as it stands on
// the disk, so turns, flips and what the other dialog did are lost with the first slider that changes.

#include "forms/adjustment_window.h"
#include "forms/app.h"

namespace lumidex {

// The dialog takes the main window's icon, the backdrop, and both previews from the main window.
void PrepareAdjustmentDialog(App& app, AdjustmentWindow& dialog);
// Both previews show what the main window shows.
void ResetPreviews(App& app, AdjustmentWindow& dialog);

// The working image becomes the file, filtered as the sliders of the dialog say. Raise what opening the file
// raises.
void ApplyColorBalance(App& app);
void ApplyBrightnessAndContrast(App& app);
// The second preview shows the working image.
void PreviewWorkingImage(App& app, AdjustmentWindow& dialog);

// Shows the working image on the main window and hides the dialog, which keeps its sliders.
void AcceptAdjustment(App& app, AdjustmentWindow& dialog);

}  // namespace lumidex
