#include "platform/headless/memory_tray.h"

#include <algorithm>

#include "base/run_time_error.h"

namespace lumidex {

std::string TipText(const TrayIconRecord& record) {
  return {record.szTip.begin(), std::ranges::find(record.szTip, '\0')};
}

bool MemoryTray::Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) {
  static constexpr const char* names[] = {"add", "modify", "delete"};
  log_.Add(std::string("Shell_NotifyIconA ") + (action <= NIM_DELETE ? names[action] : "unknown") + " \"" +
           TipText(record) + "\"");
  if (!isAvailable || action > NIM_DELETE || record.cbSize != TrayIconRecord::Size) return false;
  const bool isShown = icon && icon->hWnd == record.hWnd && icon->uID == record.uID;
  if (isShown == (action == NIM_ADD)) return false;
  if (action == NIM_DELETE) {
    icon.reset();
  } else {
    icon = record;
  }
  return true;
}

bool MemoryTray::MoveMouse(float x, float y) const {
  if (!icon || (icon->uFlags & NIF_MESSAGE) == 0 || icon->uCallbackMessage != WM_MOUSEMOVE) return false;
  const WindowHandle window = icon->hWnd;
  if (OnMouseMove) OnMouseMove(window, x, y);
  return true;
}

void MemoryPopup::PopupMenu(WindowHandle form, WindowHandle menu) {
  log_.Add("PopupMenu " + nameOf(menu));
  if (!works) throw RunTimeError(ErrorNumber::InvalidCall);
  form_ = form;
  menu_ = menu;
  const int mine = ++opened_;
  events_.RunUntil([this, mine] { return menu_ == 0 || opened_ != mine; });
}

void MemoryPopup::Close() {
  menu_ = form_ = 0;
}

}  // namespace lumidex
