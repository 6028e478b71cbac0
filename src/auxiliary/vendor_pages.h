#pragma once
// The window with the vendor's pages: opening it, its layout, and the title that follows the pages.

#include "forms/app.h"

namespace lumidex {

// Shows the window with that tab in front, 0 to 2.
void OpenVendorPages(App& app, int tab);

// What the window does when it is loaded: it sends the three browsers to their pages.
void PrepareBrowserWindow(App& app);
void FitBrowserWindow(App& app);
// The tick of its timer: the title tells whether pages are on their way, else the name of the one in front.
void FollowPages(App& app);

}  // namespace lumidex
