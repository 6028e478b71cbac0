#pragma once
// The icon in the notification area and the two menus that pop up from it.

#include "forms/app.h"

namespace lumidex {

// Puts the icon there, and takes it away again.
void AddTrayIcon(App& app);
void DeleteTrayIcon(App& app);

// What happens to the icon comes as mouse moves, with a message's number times the twips of a pixel in `x`.
// Errors end it quietly; those of a menu item are that item's.
void frmSystemTray_MouseMove(App& app, float x);

}  // namespace lumidex
