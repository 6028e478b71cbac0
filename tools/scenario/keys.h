#pragma once
// The keyboard of scenarios: keys by name, and what a window makes of them before its controls do.

#include <string>

#include "controls/form.h"

namespace lumidex::scenario {

struct Key {
  int code = 0;          // the classic virtual key code
  bool control = false;  // held with Ctrl
};

// "Enter", "Escape", "Space", "Up", "F5", "A", "Ctrl+D"; throws Failure for others.
Key KeyNamed(const std::string& name);

// Shortcuts go to the menu, Enter and Escape to the window's default and cancel buttons unless the control
// takes them, arrows move the selection of a list.
void PressKey(Form& form, Control* control, Key key);

}  // namespace lumidex::scenario
