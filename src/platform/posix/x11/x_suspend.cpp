#include "platform/posix/x11/x_suspend.h"

#include <xcb/screensaver.h>

#include "platform/posix/x11/x_screen.h"

namespace lumidex {
namespace {

class Suspension final : public Grant {
 public:
  explicit Suspension(const std::string& display) : screen_(display) {
    if (!screen_.IsOpen()) return;
    const auto* extension = xcb_get_extension_data(screen_.Connection(), &xcb_screensaver_id);
    if (!extension || !extension->present) return;
    const auto cookie = xcb_screensaver_query_version(screen_.Connection(), 1, 1);
    const auto version = Owned(xcb_screensaver_query_version_reply(screen_.Connection(), cookie, nullptr));
    // Suspending came with 1.1.
    if (!version || version->server_minor_version < 1) return;
    xcb_screensaver_suspend(screen_.Connection(), 1);
    holds_ = xcb_flush(screen_.Connection()) > 0;
  }
  bool Holds() const { return holds_; }

 private:
  XScreen screen_;
  bool holds_ = false;
};

}  // namespace

std::unique_ptr<Grant> SuspendScreenSaver(const Environment& environment) {
  auto suspension = std::make_unique<Suspension>(environment("DISPLAY"));
  if (!suspension->Holds()) return nullptr;
  return suspension;
}

}  // namespace lumidex
