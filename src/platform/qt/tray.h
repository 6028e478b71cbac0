#pragma once
// The icon in the desktop's notification area, over whichever of the two protocols the desktop speaks.

#include <QElapsedTimer>
#include <QPoint>
#include <QSystemTrayIcon>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/posix/background_jobs.h"
#include "platform/posix/environment.h"
#include "platform/posix/session_bus.h"
#include "platform/qt/popup.h"
#include "ports/event_queue.h"
#include "ports/services.h"

namespace lumidex {

// Where a notification area can be found; told apart from its use for tests.
enum class TrayHost { None, XEmbed, StatusNotifier };

class QtTray final : public Tray {
 public:
  // Looks for a notification area; called on a thread that may wait.
  using Find = std::function<TrayHost()>;
  QtTray(EventQueue& events, const FormViews& views, QtPopup& popup, Find find);
  ~QtTray() override;

  bool IsAvailable() const override;
  // The icon may come later than this returns, once there is a notification area.
  bool Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) override;

  // A press on the icon, as the protocols tell it: two within the double-click time are a double click.
  void Activated(QSystemTrayIcon::ActivationReason reason);
  // The press that has closed a menu of ours never reaches the icon: here it counts if it was made where the
  // one before was.
  void PressedBeside(QPoint place);

 private:
  void Look();
  void Found(TrayHost host);
  void Show();
  void LetIconGo();
  // All menus of the icon's form in one, for the desktop to draw.
  void MakeDesktopMenu();
  void Press();
  void Tell(std::uint32_t message);

  EventQueue& events_;
  const FormViews& views_;
  QtPopup& popup_;
  Find find_;
  std::optional<TrayIconRecord> record_;
  std::unique_ptr<QObject> besideModalWindows_;
  std::unique_ptr<QMenu> desktopMenu_;
  std::vector<MenuLine> desktopLines_;
  std::unique_ptr<QSystemTrayIcon> icon_;  // goes before its menu
  QTimer look_;                            // what is left of the wait for the next one
  QElapsedTimer sincePress_;
  QPoint pressedAt_;
  BackgroundJobs jobs_;
};

// Whether windows of ours can open menus at the mouse. Where they can't, and where the notification area
// shows no others, the desktop draws them.
bool CanOpenMenus(const Environment& environment);

// Asks the session bus and the X server.
TrayHost FindTrayHost(SessionBus& bus, const Environment& environment);

}  // namespace lumidex
