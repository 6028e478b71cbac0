#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QTimer>
#include <optional>

#include "forms/frmSplash.h"
#include "forms/frmlocatefiles.h"
#include "platform/posix/memory.h"
#include "platform/posix/posix_process.h"
#include "platform/qt/artwork.h"
#include "platform/qt/browser.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/clock.h"
#include "platform/qt/conversions.h"
#include "platform/qt/dialogs.h"
#include "platform/qt/drawn_icons.h"
#include "platform/qt/end_requests.h"
#include "platform/qt/event_queue.h"
#include "platform/qt/form_views.h"
#include "platform/qt/popup.h"
#include "platform/qt/tray.h"
#include "platform/qt/views/view_factory.h"
#include "platform/qt/window_control.h"

namespace lumidex {
namespace {

// The splash is shown before the main window, but the user waits for the picture in that one. A search that
// is over at once is no news.
constexpr int millisecondsLate = 100;

// Set before the application exists. A global menu bar would need the session bus before the first window.
void SetAttributes() {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QCoreApplication::setApplicationName(QStringLiteral("Lumidex"));
  QCoreApplication::setApplicationVersion(QStringLiteral(LUMIDEX_VERSION));
}

// It is installed beside this one.
QString BrowserProgram() {
  return ToQt(ExecutableLocation() + "/lumidex-browser");
}

struct Attributes {
  Attributes() { SetAttributes(); }
};

}  // namespace

struct QtDesktop::Parts {
  Parts(int& argc, char** argv, const SystemPorts& system)
      : application(argc, argv),
        tray(events, views, popup, [&bus = system.bus] { return FindTrayHost(bus, ReadEnvironment); }),
        platform{system.files,  events,         dialogs, windows,        clock,        system.process,
                 clipboard,     system.desktop, tray,    popup,          system.shell, system.settings,
                 system.loader, system.folders, browser, system.decoding} {
    QApplication::setStyle(new DrawnIcons);
    // Only the program itself ends the process: it lives on while all its windows are hidden.
    QApplication::setQuitOnLastWindowClosed(false);
    system.decoding.OnUnexpected = [this](const std::exception_ptr& error) {
      events.Post([error] { std::rethrow_exception(error); });
    };
    // What can wait until the first window is painted.
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, [] {
      QApplication::setWindowIcon(ApplicationIcon());
      // What reading fonts and making windows took besides.
      GiveFreeMemoryBack();
    });
    later.start(millisecondsLate);
  }

  Attributes attributes;
  QApplication application;
  QTimer later;
  QtEventQueue events;
  FormViews views{&MakeView};
  QtDialogs dialogs{views};
  QtWindowControl windows{views};
  QtClock clock;
  QtClipboard clipboard;
  QtPopup popup{events, views};
  QtTray tray;
  QtBrowser browser{BrowserProgram()};
  Platform platform;
  std::optional<EndRequests> ends;
};

QtDesktop::QtDesktop(int& argc, char** argv, const SystemPorts& system)
    : parts_(std::make_unique<Parts>(argc, argv, system)) {}

QtDesktop::~QtDesktop() = default;

Platform& QtDesktop::GetPlatform() {
  return parts_->platform;
}

FormViews& QtDesktop::Views() {
  return parts_->views;
}

void QtDesktop::Attach(const std::vector<Form*>& forms) {
  for (Form* form : forms) {
    const bool isLate = dynamic_cast<frmSplashWindow*>(form) || dynamic_cast<frmlocatefilesWindow*>(form);
    parts_->views.Attach(*form, isLate ? millisecondsLate : 0);
  }
}

void QtDesktop::BeforeEnd(std::function<void()> work) {
  parts_->events.BeforeEnd = [this, work = std::move(work)] {
    // For the user the program has ended; the rest may take a moment.
    for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    parts_->clipboard.HandOver();
    work();
  };
}

void QtDesktop::OnEnd(std::function<void()> end, std::function<void()> save) {
  const auto guarded = [&events = parts_->events](std::function<void()> work) {
    return [&events, work = std::move(work)] { events.Post(work); };
  };
  parts_->ends.emplace(guarded(std::move(end)), std::move(save));
}

void QtDesktop::Run() {
  while (true) QApplication::exec();
}

}  // namespace lumidex
