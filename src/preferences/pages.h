#pragma once
// The way to a page of the preferences.

#include "forms/app.h"

namespace lumidex {

// Opens a page of the preferences, modally.
void OpenPreferencesPage(App& app, int tab);

}  // namespace lumidex
