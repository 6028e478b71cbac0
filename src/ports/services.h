#pragma once
// The small services: clock, process, clipboard, desktop, tray, popup menus, shell, settings store, picture
// loader, special folders, browser.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pictures/picture.h"
#include "ports/window_control.h"

namespace lumidex {

struct DateTime {
  int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time of day in seconds since midnight, with fractions; falls back to 0 at midnight.
  virtual double TimeOfDay() const = 0;
  virtual DateTime Now() const = 0;
  // The local time of a moment, as that of a file.
  virtual DateTime LocalTime(std::int64_t secondsSince1970) const = 0;
};

class Process {
 public:
  virtual ~Process() = default;
  // Folder of the program, where its files are kept; may or may not end in a separator.
  virtual std::string ExecutableFolder() const = 0;
  // The raw command line: one path in double quotes, or empty.
  virtual std::string CommandLine() const = 0;
  virtual bool HasPreviousInstance() = 0;
};

// What goes onto the clipboard, by the number that the call has for it.
enum class ClipboardFormat : int {
  Own = 0,  // left to the clipboard, which takes the picture's own
  Text = 1,
  Bitmap = 2,
  Metafile = 3,
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // The three that write raise ClipboardUnavailable when the clipboard can't be had.
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;
  // Raises InvalidClipboardFormat for no picture, and for one that has no such format.
  virtual void SetData(const Picture& picture, ClipboardFormat format = ClipboardFormat::Own) = 0;
  virtual std::string Text() const = 0;
};

using RegistryKey = std::uintptr_t;
inline constexpr RegistryKey HKEY_CURRENT_USER = 0x80000001;
inline constexpr RegistryKey HKEY_LOCAL_MACHINE = 0x80000002;
// Types of registry values, and the rights with which a key is opened.
inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;
inline constexpr std::uint32_t KEY_SET_VALUE = 2;
inline constexpr std::uint32_t KEY_READ_WRITE = 0x2003F;
inline constexpr unsigned SPI_SETDESKWALLPAPER = 20;

class Desktop {
 public:
  virtual ~Desktop() = default;
  // 0 is success, as the calls have it.
  virtual std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t access,
                                     RegistryKey& key) = 0;
  // Keeps these bytes; whoever wants a zero at the end of a text puts one there.
  virtual std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                      const std::string& bytes) = 0;
  // `bytes` comes as long as the caller's buffer and goes as long as the value, which is refused when it does
  // not fit in.
  virtual std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                        std::string& bytes) = 0;
  virtual std::int32_t RegCloseKey(RegistryKey key) = 0;
  virtual bool SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                                     unsigned flags) = 0;
  virtual void ShowDisplaySettings() = 0;
  // Keeps the screen from going dark until it is told otherwise, at the latest until the process ends. Where
  // no desktop grants that, nothing happens.
  virtual void KeepScreenAwake(bool awake) = 0;
};

// An icon of the notification area, as the call takes it.
struct TrayIconRecord {
  // What cbSize says: the bytes of a record whose handles have four.
  static constexpr std::uint32_t Size = 88;

  std::uint32_t cbSize = 0;
  WindowHandle hWnd = 0;
  std::uint32_t uID = 0;
  std::uint32_t uFlags = 0;
  std::uint32_t uCallbackMessage = 0;
  Picture hIcon;
  std::array<char, 64> szTip{};
};

inline constexpr unsigned NIM_ADD = 0;
inline constexpr unsigned NIM_MODIFY = 1;
inline constexpr unsigned NIM_DELETE = 2;
inline constexpr std::uint32_t NIF_MESSAGE = 1;
inline constexpr std::uint32_t NIF_ICON = 2;
inline constexpr std::uint32_t NIF_TIP = 4;
inline constexpr std::uint32_t WM_MOUSEMOVE = 0x200;
inline constexpr std::uint32_t WM_LBUTTONDOWN = 0x201;
inline constexpr std::uint32_t WM_LBUTTONUP = 0x202;
inline constexpr std::uint32_t WM_LBUTTONDBLCLK = 0x203;
inline constexpr std::uint32_t WM_RBUTTONDOWN = 0x204;

class Tray {
 public:
  virtual ~Tray() = default;
  // Whether an icon of the program stands in a notification area, where the user can reach it.
  virtual bool IsAvailable() const = 0;
  virtual bool Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) = 0;

  // The way back, set by the program: a window's mouse moves to that place in twips. An icon whose callback
  // message is WM_MOUSEMOVE tells what happens to it that way, X being the message's number times the twips
  // of a pixel. Called on the event thread, through the event queue's Guard.
  std::function<void(WindowHandle window, float x, float y)> OnMouseMove;
};

class Popup {
 public:
  virtual ~Popup() = default;
  // Opens the entries of a form's menu where the mouse is and serves events until one of them was chosen or
  // the menu was left; timers go on. The click of the chosen entry runs inside, as an event of its own, with
  // the menu closed already. A menu that is open when another is asked for closes. Raises InvalidCall when no
  // menu can be opened.
  virtual void PopupMenu(WindowHandle form, WindowHandle menu) = 0;
};

class Shell {
 public:
  virtual ~Shell() = default;
  // Above 32 is success. `window` is the one that asks.
  virtual int ShellExecuteA(WindowHandle window, const std::string& verb, const std::string& file,
                            const std::string& arguments, const std::string& directory, int show) = 0;
  // Raises FileNotFound when the program is not there.
  virtual void StartProgram(const std::string& command) = 0;
};

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // Both raise InvalidCall when the store can't be had.
  virtual std::string GetSetting(const std::string& section, const std::string& key,
                                 const std::string& preset) const = 0;
  virtual void SaveSetting(const std::string& section, const std::string& key, const std::string& value) = 0;
};

class SpecialFolders {
 public:
  virtual ~SpecialFolders() = default;
  virtual std::string Desktop() const = 0;
  virtual std::string Documents() const = 0;
  virtual std::string Favorites() const = 0;
};

// The browsers of a window, numbered from 0.
class Browser {
 public:
  virtual ~Browser() = default;
  // All raise AutomationError when there is no browser of that number, or it has failed. Navigate returns at
  // once; the browser is busy until the page is there or has turned out not to be.
  virtual void Navigate(int browser, const std::string& address) = 0;
  virtual bool Busy(int browser) const = 0;
  // The title of the page that is shown, empty before the first.
  virtual std::string LocationName(int browser) const = 0;
};

}  // namespace lumidex
