#pragma once
// Where the session bus is, and whether it is awake: found out before a library that would wait for it, or
// start one of its own, is let near it.

#include <string>

#include "platform/posix/environment.h"

namespace lumidex {

inline constexpr const char* busVariable = "DBUS_SESSION_BUS_ADDRESS";
// What the variable holds where there is no bus: libraries neither look for one nor start one then.
inline constexpr const char* noBusAddress = "disabled:";

// `addresses` as the variable has them. True when somebody answers at one of them in time, and for kinds of
// addresses other than sockets of this machine, which are not tried. False for `noBusAddress`.
bool BusAnswers(const std::string& addresses, int millisecondsAtMost);

// The address that the environment tells, or that of the user's runtime directory; `noBusAddress` when nobody
// answers there in time.
std::string FindSessionBus(const Environment& environment, int millisecondsAtMost);

// Puts the address found into this process's environment, where the window system's library looks. To be
// called while no other thread runs.
void SettleSessionBus();

}  // namespace lumidex
