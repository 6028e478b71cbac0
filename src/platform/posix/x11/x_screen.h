#pragma once
// A connection to the X server of our own, apart from the window system's: what is left behind on it can be
// told to stay.

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/posix/monitor_place.h"

namespace lumidex {

class XScreen {
 public:
  // `display` as in $DISPLAY. Not open when there is none to connect to.
  explicit XScreen(const std::string& display);
  ~XScreen();
  XScreen(const XScreen&) = delete;
  XScreen& operator=(const XScreen&) = delete;

  bool IsOpen() const { return screen_ != nullptr; }
  // The following need an open one.
  xcb_connection_t* Connection() const { return connection_; }
  const xcb_screen_t& Screen() const { return *screen_; }
  Size GetSize() const { return {screen_->width_in_pixels, screen_->height_in_pixels}; }
  // At least one: without the extension the whole screen.
  std::vector<MonitorPlace> Monitors() const;
  // 0 when the server can't have it.
  xcb_atom_t Atom(const std::string& name) const;
  // The numbers of a property, 32 bits each, of that type; none when there is no such.
  std::vector<std::uint32_t> Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
  std::vector<std::uint32_t> RootNumbers(const std::string& property, xcb_atom_t type) const {
    return Numbers(screen_->root, Atom(property), type);
  }

 private:
  xcb_connection_t* connection_ = nullptr;
  const xcb_screen_t* screen_ = nullptr;
};

// What a call of the library answers, freed at the end.
template <class Reply>
struct FreeReply {
  void operator()(Reply* reply) const { std::free(reply); }
};
template <class Reply>
std::unique_ptr<Reply, FreeReply<Reply>> Owned(Reply* reply) {
  return std::unique_ptr<Reply, FreeReply<Reply>>(reply);
}

}  // namespace lumidex
