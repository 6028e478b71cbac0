#pragma once
// The thumbnail viewer: its first layout, its scrolling, what its status bar tells, and what its cells do.

#include "forms/app.h"

namespace lumidex {

// The page size, the scroll bar and the first page, from TopIndex on. Yields.
void SetUpThumbnailView(App& app);

// Tells of the entry at that position of the Display list, counted from 1: its name and length. Size and
// depth are those of the picture in the working image, and the place told last counts from TopIndex. Yields.
void ShowThumbnailStatus(App& app, std::int16_t position);

// Makes the entry of a cell the current picture and closes the viewer; nothing while a page is filled.
void TakeThumbnail(App& app, int cell);

// The scroll bar has moved: the page is built anew from there.
void ScrollThumbnails(App& app);

}  // namespace lumidex
