#pragma once
// The drawn pictures that belong to the design of forms, as the dialogs' backdrop and the placeholders of the
// thumbnail pages.

#include <vector>

#include "controls/form.h"

namespace lumidex {

// Gives them to those of the forms that have them. Called before the first form is loaded. Each picture is
// decoded when it is first shown.
void SetDesignPictures(const std::vector<Form*>& forms);

}  // namespace lumidex
