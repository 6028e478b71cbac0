#include "platform/qt/tray.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QWindow>
#include <algorithm>

#include "base/text.h"
#include "platform/posix/bus_address.h"
#include "platform/posix/x11/x_screen.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"

namespace lumidex {
namespace {

// The start has a window to show first. A desktop that has just started may still be without its panel: each
// time the wait doubles.
constexpr int firstLookMilliseconds = 100, longestWaitMilliseconds = 60000;
// How far the mouse may move between the two presses of a double click.
constexpr int mostMoved = 8;

// The icon stays within reach while a modal window is open, which blocks all windows but those of its own.
class IconBesideModalWindows final : public QObject {
 public:
  IconBesideModalWindows() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The library's own window for an icon of the older protocol.
    if (event->type() == QEvent::WindowBlocked &&
        watched->objectName() == QLatin1String("QSystemTrayIconSysWindow"))
      static_cast<QWindow*>(watched)->setTransientParent(QGuiApplication::modalWindow());
    return false;
  }
};

QString TipOf(const TrayIconRecord& record) {
  return ToQt(std::string(record.szTip.begin(), std::ranges::find(record.szTip, '\0')));
}

}  // namespace

TrayHost FindTrayHost(SessionBus& bus, const Environment& environment) {
  constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
  if (const std::string address = environment(busVariable); !address.empty() && address != noBusAddress) {
    const auto ask = [&bus](BusCall call) { return bus.Call(call, SessionBus::ShortMilliseconds); };
    const auto owned = ask({"org.freedesktop.DBus",
                            "/org/freedesktop/DBus",
                            "org.freedesktop.DBus",
                            "NameHasOwner",
                            {{std::string(watcher)}}});
    // The icon's own library asks the same once more, in the event thread and without a limit: where nobody
    // answers now it is kept away.
    if (!owned || owned->empty()) return TrayHost::None;
    if (const bool* there = std::get_if<bool>(&owned->front().value); there && *there) {
      const auto shown = ask({watcher,
                              "/StatusNotifierWatcher",
                              "org.freedesktop.DBus.Properties",
                              "Get",
                              {{std::string(watcher)}, {std::string("IsStatusNotifierHostRegistered")}}});
      if (!shown || shown->empty()) return TrayHost::None;
      if (const bool* shows = std::get_if<bool>(&shown->front().value); shows && *shows)
        return TrayHost::StatusNotifier;
    }
  }
  const XScreen screen(environment("DISPLAY"));
  if (!screen.IsOpen()) return TrayHost::None;
  const auto cookie = xcb_get_selection_owner(screen.Connection(), screen.Atom("_NET_SYSTEM_TRAY_S0"));
  const auto owner = Owned(xcb_get_selection_owner_reply(screen.Connection(), cookie, nullptr));
  return owner && owner->owner != XCB_WINDOW_NONE ? TrayHost::XEmbed : TrayHost::None;
}

bool CanOpenMenus(const Environment& environment) {
  return QGuiApplication::platformName() != QStringLiteral("wayland") &&
         LCase(environment("XDG_CURRENT_DESKTOP")).find("gnome") == std::string::npos;
}

QtTray::QtTray(EventQueue& events, const FormViews& views, QtPopup& popup, Find find)
    : events_(events), views_(views), popup_(popup), find_(std::move(find)) {
  popup_.OnPressedBeside = [this](QPoint place) { PressedBeside(place); };
  look_.setSingleShot(true);
  QObject::connect(&look_, &QTimer::timeout, [this] { Look(); });
}

QtTray::~QtTray() = default;

bool QtTray::IsAvailable() const {
  return icon_ && icon_->isVisible();
}

bool QtTray::Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) {
  if (record.cbSize != TrayIconRecord::Size) return false;
  switch (action) {
    case NIM_ADD:
      if (record_) return false;
      record_ = record;
      look_.start(firstLookMilliseconds);
      return true;
    case NIM_MODIFY:
      if (!record_) return false;
      record_ = record;
      if (icon_) Show();
      return true;
    case NIM_DELETE:
      if (!record_) return false;
      record_.reset();
      LetIconGo();
      desktopLines_.clear();
      desktopMenu_.reset();
      look_.stop();
      return true;
    default:
      return false;
  }
}

void QtTray::LetIconGo() {
  const std::string address = ReadEnvironment(busVariable);
  if (icon_ && address != noBusAddress && !BusAnswers(address, SessionBus::ShortMilliseconds)) {
    // It would tell the bus that it goes, and wait for an answer. The end of the process tells the same.
    icon_->setContextMenu(nullptr);
    static_cast<void>(icon_.release());
  }
  icon_.reset();
}

void QtTray::Look() {
  // A bus that does not answer is waited for elsewhere: the start and the windows go on.
  jobs_.Ask(0, [this] {
    const TrayHost host = find_();
    events_.Post([this, host] { Found(host); });
  });
}

void QtTray::Found(TrayHost host) {
  if (!record_ || icon_) return;
  if (host == TrayHost::None) {
    look_.start(std::min(2 * look_.interval(), longestWaitMilliseconds));
    return;
  }
  if (host == TrayHost::XEmbed) besideModalWindows_ = std::make_unique<IconBesideModalWindows>();
  icon_ = std::make_unique<QSystemTrayIcon>();
  QObject::connect(icon_.get(), &QSystemTrayIcon::activated,
                   [this](QSystemTrayIcon::ActivationReason reason) {
                     // Later: the desktop's call gets its answer before a menu is opened.
                     events_.Post([this, reason] { Activated(reason); });
                   });
  if (host == TrayHost::StatusNotifier && !CanOpenMenus(ReadEnvironment)) MakeDesktopMenu();
  Show();
}

void QtTray::Show() {
  icon_->setIcon(record_->hIcon.IsEmpty() ? ApplicationIcon() : ToIcon(record_->hIcon));
  icon_->setToolTip(TipOf(*record_));
  icon_->show();
}

void QtTray::MakeDesktopMenu() {
  const Form* form = views_.FormOf(record_->hWnd);
  if (!form) return;
  popup_.SetDesktopDraws(true);
  desktopMenu_ = std::make_unique<QMenu>();
  for (const Control* control : form->Controls()) {
    const auto* root = dynamic_cast<const MenuItem*>(control);
    if (!root || root->Parent()) continue;
    if (!desktopLines_.empty()) desktopMenu_->addSeparator();
    const auto lines = FillMenu(*desktopMenu_, *form, *root,
                                [this](MenuItem& item) { events_.Guard([&item] { item.Click(); }); });
    desktopLines_.insert(desktopLines_.end(), lines.begin(), lines.end());
  }
  // The program decides at each press which items are enabled: here for both menus at once.
  QObject::connect(desktopMenu_.get(), &QMenu::aboutToShow, desktopMenu_.get(), [this] {
    popup_.LetDesktopDraw([this] {
      Tell(WM_LBUTTONDOWN);
      Tell(WM_RBUTTONDOWN);
    });
    for (const MenuLine& line : desktopLines_) ShowItem(line);
  });
  icon_->setContextMenu(desktopMenu_.get());
}

void QtTray::Activated(QSystemTrayIcon::ActivationReason reason) {
  switch (reason) {
    case QSystemTrayIcon::Trigger:
      return Press();
    case QSystemTrayIcon::DoubleClick:
      // The two presses have told it already.
      return;
    case QSystemTrayIcon::Context:
      return Tell(WM_RBUTTONDOWN);
    default:
      return;
  }
}

void QtTray::Press() {
  const bool isSecond = sincePress_.isValid() && sincePress_.elapsed() <= QApplication::doubleClickInterval();
  pressedAt_ = QCursor::pos();
  if (isSecond) {
    // A third press begins anew.
    sincePress_.invalidate();
    Tell(WM_LBUTTONDBLCLK);
  } else {
    sincePress_.start();
    Tell(WM_LBUTTONDOWN);
  }
}

void QtTray::PressedBeside(QPoint place) {
  if (!sincePress_.isValid() || (place - pressedAt_).manhattanLength() > mostMoved) return;
  if (sincePress_.elapsed() <= QApplication::doubleClickInterval()) Press();
}

void QtTray::Tell(std::uint32_t message) {
  if (!record_ || (record_->uFlags & NIF_MESSAGE) == 0 || record_->uCallbackMessage != WM_MOUSEMOVE) return;
  const WindowHandle window = record_->hWnd;
  events_.Guard([this, window, message] {
    if (OnMouseMove) OnMouseMove(window, static_cast<float>(message) * twipsPerPixel, 0);
  });
}

}  // namespace lumidex
