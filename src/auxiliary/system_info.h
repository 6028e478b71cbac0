#pragma once
// The way to the system's own tool for facts about the machine, as the registry tells it.

#include "forms/app.h"

namespace lumidex {

// A value of the registry as text: a text as it stands, a 32-bit number in decimal, of any other type the
// empty text. False, with the empty text, when there is no such key or value.
bool GetKeyValue(App& app, RegistryKey root, std::string keyName, std::string valueName, std::string& text);

// Starts the tool; says so when there is none, and nothing when it can't be started.
void StartSysInfo(App& app);

}  // namespace lumidex
