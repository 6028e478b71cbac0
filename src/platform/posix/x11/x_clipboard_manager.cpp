#include "platform/posix/x11/x_clipboard_manager.h"

namespace lumidex {

ClipboardTakeOver::ClipboardTakeOver(const std::string& display, const std::vector<std::string>& targets)
    : screen_(display) {
  if (!screen_.IsOpen()) return;
  xcb_connection_t* connection = screen_.Connection();
  const xcb_atom_t manager = screen_.Atom("CLIPBOARD_MANAGER");
  const auto owner =
      Owned(xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, manager), nullptr));
  if (!owner || owner->owner == XCB_WINDOW_NONE) return;
  std::vector<xcb_atom_t> atoms;
  for (const std::string& target : targets) atoms.push_back(screen_.Atom(target));
  const xcb_atom_t property = screen_.Atom("LUMIDEX_SAVED_TARGETS");
  const xcb_window_t window = xcb_generate_id(connection);
  xcb_create_window(connection, 0, window, screen_.Screen().root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, 0, nullptr);
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(atoms.size()), atoms.data());
  xcb_convert_selection(connection, window, manager, screen_.Atom("SAVE_TARGETS"), property,
                        XCB_CURRENT_TIME);
  isAwaited_ = xcb_flush(connection) > 0;
}

bool ClipboardTakeOver::IsAwaited() {
  while (isAwaited_) {
    const auto event = Owned(xcb_poll_for_event(screen_.Connection()));
    if (!event) break;
    constexpr std::uint8_t sentByOthers = 0x80;
    if ((event->response_type & ~sentByOthers) == XCB_SELECTION_NOTIFY) isAwaited_ = false;
  }
  if (isAwaited_ && xcb_connection_has_error(screen_.Connection()) != 0) isAwaited_ = false;
  return isAwaited_;
}

}  // namespace lumidex
