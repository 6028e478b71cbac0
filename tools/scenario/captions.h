#pragma once
// The texts of controls as a person sees them: without the marks of access keys, and what stands on the
// screen.

#include <optional>

#include "controls/form.h"

namespace lumidex::scenario {

// The upper-case letter that is pressed with Alt; 0 when the control has none.
int AccessKeyOf(Control& control);

// "Add O&ne" is seen as "Add One", "4.0 && 5" as "4.0 & 5".
std::string AsSeen(const std::string& caption);

// Every text that stands on the form's window: its title, captions, texts, the rows of its lists and panels.
std::vector<std::string> ShownTexts(Form& form);

}  // namespace lumidex::scenario
