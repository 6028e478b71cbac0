#pragma once
// The notification area and the popup menus of tests: an icon that can be told of clicks, and a menu that
// stays open until a test chooses from it or leaves it.

#include "platform/headless/call_log.h"
#include "ports/event_queue.h"
#include "ports/services.h"

namespace lumidex {

class MemoryTray final : public Tray {
 public:
  explicit MemoryTray(CallLog& log) : log_(log) {}
  bool IsAvailable() const override { return isAvailable; }
  bool Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) override;

  // What the desktop does when the mouse does something to the icon: tells its window, at that place in
  // twips. False when there is no icon that wants to be told.
  bool MoveMouse(float x, float y) const;

  bool isAvailable = true;
  // The icon that is shown; nothing when there is none.
  std::optional<TrayIconRecord> icon;

 private:
  CallLog& log_;
};

// The text of a record's tip, up to its zero.
std::string TipText(const TrayIconRecord& record);

class MemoryPopup final : public Popup {
 public:
  MemoryPopup(CallLog& log, EventQueue& events) : log_(log), events_(events) {}
  void PopupMenu(WindowHandle form, WindowHandle menu) override;

  // The menu that is open, 0 when none is, and its form.
  WindowHandle OpenMenu() const { return menu_; }
  WindowHandle OpenForm() const { return form_; }
  // Left, or closed because an entry was chosen.
  void Close();

  // What windows and controls are called; it stands in the log.
  std::function<std::string(WindowHandle)> nameOf;
  bool works = true;

 private:
  CallLog& log_;
  EventQueue& events_;
  WindowHandle form_ = 0, menu_ = 0;
  int opened_ = 0;  // tells one opening from the next
};

}  // namespace lumidex
