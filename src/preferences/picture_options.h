#pragma once
// Options that show at once: the stretched viewer picture and the sample thumbnail.

#include "forms/app.h"

namespace lumidex {

// Brings the picture on screen up anew: the selected entry of the Display list, or else of the Selection
// list, whose name stands in the status bar. Does nothing when neither does.
void RedisplayForStretch(App& app);

// Writes the chosen thumbnail size beside its slider.
void ShowThumbnailSize(App& app);

// Shows the working image as a thumbnail of the chosen size and style; an empty box when there is no usable
// image.
void RefreshThumbnailPreview(App& app);

}  // namespace lumidex
