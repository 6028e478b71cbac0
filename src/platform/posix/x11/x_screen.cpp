#include "platform/posix/x11/x_screen.h"

#include <xcb/randr.h>

namespace lumidex {

XScreen::XScreen(const std::string& display) {
  int number = 0;
  if (display.empty()) return;
  connection_ = xcb_connect(display.c_str(), &number);
  if (xcb_connection_has_error(connection_) != 0) return;
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
  for (; screens.rem > 0; xcb_screen_next(&screens)) {
    if (number-- == 0) screen_ = screens.data;
  }
}

XScreen::~XScreen() {
  if (connection_) xcb_disconnect(connection_);
}

xcb_atom_t XScreen::Atom(const std::string& name) const {
  const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const auto reply = Owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> XScreen::Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const {
  constexpr std::uint32_t mostNumbers = 4096;
  const auto cookie = xcb_get_property(connection_, 0, window, property, type, 0, mostNumbers);
  const auto reply = Owned(xcb_get_property_reply(connection_, cookie, nullptr));
  if (!reply || reply->format != 32) return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

std::vector<MonitorPlace> XScreen::Monitors() const {
  std::vector<MonitorPlace> places;
  const auto* extension = xcb_get_extension_data(connection_, &xcb_randr_id);
  if (extension && extension->present) {
    // Monitors came with version 1.5, which has to be asked for.
    Owned(xcb_randr_query_version_reply(connection_, xcb_randr_query_version(connection_, 1, 5), nullptr));
    const auto cookie = xcb_randr_get_monitors(connection_, screen_->root, 1);
    const auto reply = Owned(xcb_randr_get_monitors_reply(connection_, cookie, nullptr));
    if (reply) {
      for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
           xcb_randr_monitor_info_next(&each)) {
        const auto named = Owned(
            xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, each.data->name), nullptr));
        MonitorPlace place{{}, each.data->x, each.data->y, {each.data->width, each.data->height}};
        if (named) {
          place.name.assign(xcb_get_atom_name_name(named.get()),
                            static_cast<std::size_t>(xcb_get_atom_name_name_length(named.get())));
        }
        if (place.size.width > 0 && place.size.height > 0) places.push_back(place);
      }
    }
  }
  if (places.empty()) places.push_back({"", 0, 0, GetSize()});
  return places;
}

}  // namespace lumidex
