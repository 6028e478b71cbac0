// A small clipboard manager for tests: when a program asks it to, it takes over what the clipboard holds and
// gives it to whoever asks for it afterwards. With --silent it never answers; with the name of a folder it
// puts what it took there as well, one file each. It prints "ready" once it may be asked, and ends when its
// input does.

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <utility>
#include <vector>

#include "platform/posix/x11/x_screen.h"

namespace {

using lumidex::Owned;

// What one property may hold of what is given; more has to be asked for in pieces, which nobody does here.
constexpr std::uint32_t mostWords = 1 << 24;

class Manager {
 public:
  Manager(bool isSilent, std::string folder)
      : isSilent_(isSilent),
        folder_(std::move(folder)),
        screen_(std::getenv("DISPLAY") ? std::getenv("DISPLAY") : "") {
    if (!screen_.IsOpen()) return;
    window_ = xcb_generate_id(Connection());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(Connection(), 0, window_, screen_.Screen().root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_set_selection_owner(Connection(), window_, screen_.Atom("CLIPBOARD_MANAGER"), XCB_CURRENT_TIME);
    xcb_flush(Connection());
  }

  int Run() {
    if (!screen_.IsOpen()) return 1;
    std::puts("ready");
    std::fflush(stdout);
    while (true) {
      pollfd watched[] = {{xcb_get_file_descriptor(Connection()), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
      if (poll(watched, 2, -1) < 0 || watched[1].revents != 0) return 0;
      while (const auto event = Owned(xcb_poll_for_event(Connection()))) Serve(*event);
      if (xcb_connection_has_error(Connection()) != 0) return 1;
    }
  }

 private:
  using Content = std::pair<xcb_atom_t, std::vector<std::uint8_t>>;

  xcb_connection_t* Connection() const { return screen_.Connection(); }

  void Serve(const xcb_generic_event_t& event) {
    if (isSilent_ || (event.response_type & 0x7F) != XCB_SELECTION_REQUEST) return;
    const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(event);
    if (request.target == screen_.Atom("SAVE_TARGETS")) {
      Save(request);
    } else {
      Give(request);
    }
  }

  void Tell(const xcb_selection_request_event_t& request, bool isDone) {
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = isDone ? request.property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(Connection(), 0, request.requestor, 0, reinterpret_cast<const char*>(&answer));
    xcb_flush(Connection());
  }

  void Save(const xcb_selection_request_event_t& request) {
    contents_.clear();
    for (const auto target : screen_.Numbers(request.requestor, request.property, XCB_ATOM_ATOM))
      Fetch(target);
    xcb_set_selection_owner(Connection(), window_, screen_.Atom("CLIPBOARD"), XCB_CURRENT_TIME);
    Tell(request, true);
  }

  xcb_generic_event_t* Await(std::uint8_t kind) {
    while (xcb_generic_event_t* event = xcb_wait_for_event(Connection())) {
      if ((event->response_type & 0x7F) == kind) return event;
      std::free(event);
    }
    return nullptr;
  }

  Content Take(xcb_atom_t property) {
    const auto reply = Owned(xcb_get_property_reply(
        Connection(),
        xcb_get_property(Connection(), 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords),
        nullptr));
    if (!reply) return {};
    const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
    return {reply->type, {bytes, bytes + xcb_get_property_value_length(reply.get())}};
  }

  void Fetch(xcb_atom_t target) {
    const xcb_atom_t property = screen_.Atom("FETCHED");
    xcb_convert_selection(Connection(), window_, screen_.Atom("CLIPBOARD"), target, property,
                          XCB_CURRENT_TIME);
    xcb_flush(Connection());
    const auto event = Owned(Await(XCB_SELECTION_NOTIFY));
    if (!event || reinterpret_cast<xcb_selection_notify_event_t&>(*event).property == XCB_ATOM_NONE) return;
    Content content = Take(property);
    if (content.first == screen_.Atom("INCR")) {
      content.second.clear();
      // Each piece comes when the one before was taken; an empty one is the last.
      while (true) {
        const auto change = Owned(Await(XCB_PROPERTY_NOTIFY));
        if (!change) return;
        const auto& told = reinterpret_cast<xcb_property_notify_event_t&>(*change);
        if (told.atom != property || told.state != XCB_PROPERTY_NEW_VALUE) continue;
        const Content piece = Take(property);
        if (piece.second.empty()) break;
        content.first = piece.first;
        content.second.insert(content.second.end(), piece.second.begin(), piece.second.end());
      }
    }
    if (!folder_.empty()) Write(target, content.second);
    contents_[target] = std::move(content);
  }

  void Write(xcb_atom_t target, const std::vector<std::uint8_t>& bytes) const {
    const auto reply =
        Owned(xcb_get_atom_name_reply(Connection(), xcb_get_atom_name(Connection(), target), nullptr));
    if (!reply) return;
    std::string name(xcb_get_atom_name_name(reply.get()),
                     static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
    std::ranges::replace(name, '/', '-');
    std::ofstream(folder_ + "/" + name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }

  void Give(const xcb_selection_request_event_t& request) {
    const auto put = [&](xcb_atom_t type, std::uint8_t bits, std::size_t count, const void* data) {
      xcb_change_property(Connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, type,
                          bits, static_cast<std::uint32_t>(count), data);
      Tell(request, true);
    };
    if (request.target == screen_.Atom("TARGETS")) {
      std::vector<xcb_atom_t> targets;
      for (const auto& each : contents_) targets.push_back(each.first);
      return put(XCB_ATOM_ATOM, 32, targets.size(), targets.data());
    }
    const auto found = contents_.find(request.target);
    if (found == contents_.end()) return Tell(request, false);
    put(found->second.first, 8, found->second.second.size(), found->second.second.data());
  }

  bool isSilent_;
  std::string folder_;
  lumidex::XScreen screen_;
  xcb_window_t window_ = 0;
  std::map<xcb_atom_t, Content> contents_;
};

}  // namespace

int main(int argc, char** argv) {
  const bool isSilent = argc > 1 && std::string(argv[1]) == "--silent";
  return Manager(isSilent, argc > 1 && !isSilent ? argv[1] : "").Run();
}
