#pragma once
// The popup menu that is open, as the user meets it.

#include "controls/menu_item.h"
#include "scenario/keys.h"
#include "scenario/targets.h"

namespace lumidex::scenario {

// Chooses an entry when a popup menu is open; false when none is. Throws Failure for what does not stand in
// it. A disabled entry does nothing, and the menu stays open.
bool ChooseFromPopup(Execution& run, const Target& target);

// Escape leaves the menu; throws Failure for other keys. False when none is open.
bool PressInPopup(Execution& run, Key key);

// Whether the entry, or one of the entries that it opens from, stands in the menu that is open.
bool StandsInPopup(Execution& run, const MenuItem& item);

// The name of the menu that is open, without that of its form; "(none)" when none is.
std::string OpenPopupName(Execution& run);

}  // namespace lumidex::scenario
