#pragma once
// The slide show: a timer steps through the Display list, and each step may also become the wallpaper and
// fill the screen. What runs is told by the check marks of the menu items; there is no other state.

#include "forms/app.h"

namespace lumidex {

// Moves on (the first slide of a show does not), then does what the check marks ask for. Clears `firstSlide`.
void SlideShowStep(App& app, bool& firstSlide);

void tmrSlideShow_Timer(App& app);
// Starts or stops the show in the window; errors end it quietly.
void mnuSlideShowRunSlideShow_Click(App& app);
// Starts or stops the show on the whole screen. Raises Overflow for an interval above 32 seconds.
void mnuSlideShowFullScreen_Click(App& app);
void mnuSlideShowViewerOnly_Click(App& app);
void mnuSlideshowDesktopCentered_Click(App& app);
void mnuSlideshowDesktopStretched_Click(App& app);
// Each turns the direction round, whichever of the two is ticked.
void mnuSlideShowForwardOrder_Click(App& app);
void mnuSlideShowReverseOrder_Click(App& app);

// The period of the timer for the present SlideShowInterval, in milliseconds; an interval of 0 becomes 15
// seconds first. A product beyond 16 bits raises Overflow.
int SlideShowPeriod(App& app);

}  // namespace lumidex
