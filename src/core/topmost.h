#pragma once
// Windows that stay above all others.

#include "forms/app.h"

namespace lumidex {

// Brings a window above all others, without moving it.
void MakeWindowTopmost(App& app, WindowHandle hwnd);

}  // namespace lumidex
