#pragma once
// What the zoom viewer shows, zooms and reads out.

#include "forms/app.h"
#include "forms/frmZoomView.h"

namespace lumidex {

// Writes size, length and zoom into the viewer's panels; yields. The length of a file that has gone is left
// out.
void ShowImageNailInfo(App& app, std::string path);

// A colour taken apart; red is in the low byte.
void SplitColor(std::int32_t colour, std::int16_t& red, std::int16_t& green, std::int16_t& blue);

// The viewer fills its window, with or without its toolbar; it can't be made smaller.
void FitZoomViewer(App& app);
// The picture reaches to the right edge and down to the status bar.
void SizeZoomPicture(App& app);

// Ticks one item of the zoom menu alone.
void TickZoomLevel(frmZoomViewWindow& viewer, int level);

// The click of an item of the zoom menu, 1 to 16. A zoom that the image control refuses is told in a message,
// and the old one stays.
void SelectZoomFromMenu(App& app, int level);
// The press of a button of the toolbar, 1 to 17. A refused zoom names the item behind that of the button;
// there is none behind the last, which raises Subscript.
void PressZoomButton(App& app, int button);

void ToggleZoomToolbar(App& app);
// Without caption and menus, and back.
void ToggleZoomFullScreen(App& app);
// Caption and menus as FullScreenOn has them.
void ShowZoomFullScreenState(App& app);

// A key goes down on the picture: the arrows go to an edge, or a little away from it.
void ScrollByKey(App& app, int keyCode);
// The colour and the place under the mouse, told in twips.
void ReadOutPixel(App& app, float x, float y);
// From the present zoom down to 1 in steps of a hundredth; yields at each.
void ZoomDown(App& app);

}  // namespace lumidex
