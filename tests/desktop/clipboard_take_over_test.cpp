// On an X server of the test's own: what a clipboard manager is asked when the program goes.

#include <gmock/gmock.h>
#include <poll.h>

#include "desktop/child_program.h"
#include "platform/posix/x11/x_clipboard_manager.h"

namespace lumidex {
namespace {

class ClipboardTakeOverTest : public testing::Test {
 protected:
  // As a clipboard manager does.
  xcb_window_t BecomeManager() {
    const xcb_window_t window = xcb_generate_id(manager_.Connection());
    xcb_create_window(manager_.Connection(), 0, window, manager_.Screen().root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(manager_.Connection(), window, manager_.Atom("CLIPBOARD_MANAGER"),
                            XCB_CURRENT_TIME);
    manager_.Atom("the server has come so far");
    return window;
  }
  static bool Comes(int descriptor) {
    constexpr int millisecondsAtMost = 20000;
    pollfd watched{descriptor, POLLIN, 0};
    return poll(&watched, 1, millisecondsAtMost) == 1;
  }
  // The request that comes next.
  xcb_selection_request_event_t Request() {
    while (true) {
      auto event = Owned(xcb_poll_for_event(manager_.Connection()));
      if (!event && !Comes(xcb_get_file_descriptor(manager_.Connection()))) return {};
      if (event && (event->response_type & 0x7F) == XCB_SELECTION_REQUEST)
        return *reinterpret_cast<xcb_selection_request_event_t*>(event.get());
    }
  }
  void Answer(const xcb_selection_request_event_t& request) {
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = request.property;
    xcb_send_event(manager_.Connection(), 0, request.requestor, 0, reinterpret_cast<const char*>(&answer));
    xcb_flush(manager_.Connection());
  }

  const ChildProgram server_{
      {"Xvfb", "-displayfd", "3", "-screen", "0", "64x48x24", "-noreset", "-nolisten", "tcp"}, true};
  const std::string display_ = ":" + server_.Line();
  XScreen manager_{display_};
};

TEST_F(ClipboardTakeOverTest, Without_a_manager_nobody_is_waited_for) {
  EXPECT_FALSE(ClipboardTakeOver(display_, {"image/png"}).IsAwaited());
  EXPECT_FALSE(ClipboardTakeOver("", {"image/png"}).IsAwaited());
  EXPECT_FALSE(ClipboardTakeOver(":no such", {"image/png"}).IsAwaited());
}

TEST_F(ClipboardTakeOverTest, The_manager_is_told_what_to_save_and_waited_for_until_it_has) {
  const xcb_window_t window = BecomeManager();
  ClipboardTakeOver asked(display_, {"UTF8_STRING", "image/png"});
  EXPECT_TRUE(asked.IsAwaited());
  const auto request = Request();
  EXPECT_EQ(request.owner, window);
  EXPECT_EQ(request.target, manager_.Atom("SAVE_TARGETS"));
  EXPECT_THAT(manager_.Numbers(request.requestor, request.property, XCB_ATOM_ATOM),
              testing::ElementsAre(manager_.Atom("UTF8_STRING"), manager_.Atom("image/png")));
  EXPECT_TRUE(asked.IsAwaited());
  Answer(request);
  ASSERT_TRUE(Comes(asked.Descriptor()));
  EXPECT_FALSE(asked.IsAwaited());
}

}  // namespace
}  // namespace lumidex
