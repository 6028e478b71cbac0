#pragma once
// The facts and the small picture of the entry that is selected in the Display list, as the properties dialog
// shows them.

#include "forms/app.h"

namespace lumidex {

// Of a file that is there the facts are its own, else those stored for it; a stored thumbnail goes before a
// made one. What can't be told is "UnAvailable". Yields; a dialog that is closed meanwhile is left alone.
// Leaves the file in the working image, or no image for one that is not there. Raises what reading the stored
// files raises, InputPastEnd among it.
void ShowFileProperties(App& app);

}  // namespace lumidex
