#include "platform/posix/screen_awake.h"

#include <string>

namespace lumidex {
namespace {

const std::string program = "Lumidex";
const std::string reason = "A slide show is running";

struct Service {
  BusCall inhibit;
  const char* release;
};

// The first whose service runs is asked. All of them answer with a number that releases.
const Service services[] = {
    // Flag 8: the session does not become idle.
    {{"org.gnome.SessionManager",
      "/org/gnome/SessionManager",
      "org.gnome.SessionManager",
      "Inhibit",
      {{program}, {std::uint32_t{0}}, {reason}, {std::uint32_t{8}}}},
     "Uninhibit"},
    {{"org.freedesktop.ScreenSaver",
      "/org/freedesktop/ScreenSaver",
      "org.freedesktop.ScreenSaver",
      "Inhibit",
      {{program}, {reason}}},
     "UnInhibit"},
    {{"org.freedesktop.PowerManagement.Inhibit",
      "/org/freedesktop/PowerManagement/Inhibit",
      "org.freedesktop.PowerManagement.Inhibit",
      "Inhibit",
      {{program}, {reason}}},
     "UnInhibit"},
};

// The portal answers with an object that is closed.
BusCall PortalCall() {
  BusDictionary options;
  options["reason"] = {reason};
  return {"org.freedesktop.portal.Desktop",
          "/org/freedesktop/portal/desktop",
          "org.freedesktop.portal.Inhibit",
          "Inhibit",
          {{std::string()}, {std::uint32_t{8}}, {options}}};
}

}  // namespace

bool ScreenAwake::Inhibit() {
  for (const Service& service : services) {
    if (!bus_.HasOwner(service.inhibit.service)) continue;
    const auto answer = bus_.Call(service.inhibit);
    if (!answer || answer->empty()) continue;
    const BusCall& call = service.inhibit;
    release_ = BusCall{call.service, call.path, call.interface, service.release, {answer->front()}};
    return true;
  }
  const BusCall portal = PortalCall();
  if (!bus_.HasOwner(portal.service)) return false;
  const auto answer = bus_.Call(portal);
  if (!answer || answer->empty() || !answer->front().Text()) return false;
  release_ = BusCall{portal.service, *answer->front().Text(), "org.freedesktop.portal.Request", "Close", {}};
  return true;
}

void ScreenAwake::Keep(bool awake) {
  if (awake == awake_) return;
  awake_ = awake;
  if (awake) {
    // Both, where both are there: a locker may look at the one and the monitor's power at the other.
    Inhibit();
    if (suspend_) grant_ = suspend_();
  } else {
    if (release_) bus_.Call(*release_);
    release_.reset();
    grant_.reset();
  }
}

}  // namespace lumidex
