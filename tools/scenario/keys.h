#pragma once
// The keyboard of scenarios: keys by name, and what a window makes of them before its controls do.

#include <string>

#include "controls/form.h"

namespace lumidex::scenario {

struct Key {
  std::string name;  // as it was told, "Ctrl+D"
  int code = 0;      // the classic virtual key code
  enum class With { Nothing, Ctrl, Alt } with = With::Nothing;
  bool operator==(const Key&) const = default;
};

// "Enter", "Escape", "Space", "Up", "F5", "A", "Ctrl+D", "Alt+O"; throws Failure for others.
Key KeyNamed(const std::string& name);

// Shortcuts go to the menu, Alt with a letter to what has that access key, Enter and Escape to the window's
// default and cancel buttons unless the control takes them. Space presses buttons, arrow and page keys move
// along lists and scroll bars. Throws Failure for a shortcut or an access key that nothing has.
void PressKey(Form& form, Control* control, const Key& key);

}  // namespace lumidex::scenario
