#pragma once
// Ticking whole sets of file types: all, none, the others, and three presets.

#include <initializer_list>

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "forms/app.h"

namespace lumidex {

using FileTypeBoxes = ControlArray<CheckBox>;

void TickAllTypes(FileTypeBoxes& boxes);
void ClearAllTypes(FileTypeBoxes& boxes);
// A box that reads 1 becomes 0, any other 1.
void InvertTypes(FileTypeBoxes& boxes);

// The presets clear the boxes of the search and tick their own types.
void SelectWebFormats(App& app);
void SelectMicrosoftFormats(App& app);
void SelectPortableFormats(App& app);

}  // namespace lumidex
