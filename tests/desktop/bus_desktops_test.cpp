// Against real services on a session bus of the test's own: the settings daemon of Xfce, the desktop of LXQt,
// and one that records what a shell like Plasma's is asked.

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QVariantMap>
#include <atomic>
#include <future>
#include <optional>

#include "desktop/child_program.h"
#include "desktop/recorded_tools.h"
#include "platform/posix/screen_awake.h"
#include "platform/posix/wallpaper/pcmanfm_backends.h"
#include "platform/posix/wallpaper/plasma_backend.h"
#include "platform/posix/wallpaper/portal_backend.h"
#include "platform/posix/wallpaper/xfconf_backend.h"
#include "platform/qt/session_bus.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A service that writes down all calls. It answers while the test waits in `Meanwhile`.
class RecordingService final : public QDBusVirtualObject {
 public:
  // Nothing leaves the caller without an answer.
  using Answer = std::function<std::optional<QVariantList>(const QDBusMessage&)>;
  RecordingService(const std::string& address, const QString& name, Answer answer)
      : answer_(std::move(answer)) {
    auto connection = QDBusConnection::connectToBus(QString::fromStdString(address), connectionName);
    connection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    owns_ = connection.registerService(name);
  }
  ~RecordingService() override {
    QDBusConnection(connectionName).unregisterObject(QStringLiteral("/"));
    QDBusConnection::disconnectFromBus(connectionName);
  }
  bool Owns() const { return owns_; }
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls.append(message);
    if (const auto answer = answer_(message)) connection.send(message.createReply(*answer));
    return true;
  }

  QList<QDBusMessage> calls;

 private:
  static constexpr const char* connectionName = "service";
  Answer answer_;
  bool owns_ = false;
};

// Runs what waits for a service on a thread of its own, as the program does, and serves events here.
template <class Work>
auto Meanwhile(Work work) {
  std::atomic<bool> done = false;
  auto result = std::async(std::launch::async, [&] {
    const auto answer = work();
    done = true;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
    return answer;
  });
  while (!done) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return result.get();
}

class BusDesktopsTest : public testing::Test {
 protected:
  // `variables` are given to the services that the bus starts.
  BusDesktopsTest() {
    variables_["DBUS_SESSION_BUS_ADDRESS"] = daemon_.Line();
    variables_["XDG_CONFIG_HOME"] = home_ / "config";
  }
  std::vector<std::string> Home() const {
    std::filesystem::create_directories(home_ / "run");
    std::filesystem::permissions(home_ / "run", std::filesystem::perms::owner_all);
    return {"HOME=" + home_.Path(), "XDG_CONFIG_HOME=" + (home_ / "config"),
            "XDG_CACHE_HOME=" + (home_ / "cache"), "XDG_RUNTIME_DIR=" + (home_ / "run"),
            "QT_QPA_PLATFORM=offscreen"};
  }

  static void Keep(ScreenAwake& screen, bool awake) {
    Meanwhile([&] {
      screen.Keep(awake);
      return true;
    });
  }

  TemporaryFolder home_;
  ChildProgram daemon_{
      {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=3"}, true, Home()};
  std::map<std::string, std::string> variables_;
  const Environment environment_ = [this](const char* name) { return variables_[name]; };
  static constexpr int patience = 20000;
  QtSessionBus bus_{environment_, patience};
  DesktopTools tools_{environment_, bus_, "/home/ada/my pictures"};
  const std::string ours_ = tools_.folder + "/wallpaper-A.bmp";
};

TEST_F(BusDesktopsTest, Without_a_bus_everything_fails_at_once) {
  variables_["DBUS_SESSION_BUS_ADDRESS"] = "";
  EXPECT_FALSE(bus_.HasOwner("org.freedesktop.DBus"));
  EXPECT_FALSE(bus_.Call({"org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId", {}}, 100));
  variables_["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (home_ / "none");
  EXPECT_FALSE(bus_.HasOwner("org.freedesktop.DBus"));
}

TEST_F(BusDesktopsTest, The_bus_tells_who_is_there) {
  EXPECT_TRUE(bus_.HasOwner("org.freedesktop.DBus"));
  EXPECT_FALSE(bus_.HasOwner("org.kde.plasmashell"));
}

TEST_F(BusDesktopsTest, A_call_that_is_refused_gives_nothing) {
  EXPECT_FALSE(bus_.Call({"org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NoSuchMethod", {}}, 1000));
}

TEST_F(BusDesktopsTest, A_service_that_does_not_answer_is_not_waited_for) {
  const RecordingService service(daemon_.Line(), "org.kde.plasmashell",
                                 [](const QDBusMessage&) { return std::nullopt; });
  ASSERT_TRUE(service.Owns());
  EXPECT_FALSE(Meanwhile([&] {
    return bus_.Call({"org.kde.plasmashell", "/", "org.kde.PlasmaShell", "evaluateScript", {}}, 20);
  }));
}

TEST_F(BusDesktopsTest, Xfce_changes_every_picture_that_is_there_and_every_connected_monitor) {
  const std::string there = "/backdrop/screen0/monitorDP-9/workspace3/";
  const auto call = [&](const char* method, std::vector<BusValue> arguments) {
    return bus_.Call({"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", method, std::move(arguments)},
                     3000);
  };
  const auto put = [&](const std::string& name, BusValue value) {
    value.boxed = true;
    ASSERT_TRUE(call("SetProperty", {{std::string("xfce4-desktop")}, {name}, value}));
  };
  const auto get = [&](const std::string& name) -> std::string {
    const auto answer = call("GetProperty", {{std::string("xfce4-desktop")}, {name}});
    if (!answer || answer->empty()) return "(none)";
    if (const auto* number = std::get_if<std::int32_t>(&answer->front().value))
      return std::to_string(*number);
    return answer->front().Text() ? *answer->front().Text() : "(other)";
  };
  put(there + "last-image", {std::string("/usr/share/a b.png")});
  put(there + "image-style", {std::int32_t{5}});
  const std::string fresh = "/backdrop/screen0/monitoreDP-1/workspace0/";

  XfconfBackend backend(tools_, [] { return std::vector<std::string>{"eDP-1"}; });
  EXPECT_FALSE(backend.ShowsOurs());
  const auto before = backend.Remember();
  const std::pair<WallpaperMode, std::string> modes[] = {
      {WallpaperMode::Centered, "1"}, {WallpaperMode::Stretched, "3"}, {WallpaperMode::Tiled, "2"}};
  for (const auto& [mode, style] : modes) {
    EXPECT_TRUE(backend.Set(ours_, mode));
    for (const std::string& place : {there, fresh}) {
      EXPECT_EQ(get(place + "last-image"), ours_);
      EXPECT_EQ(get(place + "image-style"), style);
    }
  }
  EXPECT_TRUE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_EQ(get(there + "last-image"), "/usr/share/a b.png");
  EXPECT_EQ(get(there + "image-style"), "5");
  EXPECT_EQ(get(fresh + "last-image"), "(none)");
  EXPECT_EQ(get(fresh + "image-style"), "(none)");
}

TEST_F(BusDesktopsTest, Lxqt_s_desktop_takes_the_picture_and_gives_the_old_one_back) {
  auto variables = Home();
  variables.push_back("DBUS_SESSION_BUS_ADDRESS=" + daemon_.Line());
  const std::string users = home_ / "users.bmp", settings = home_ / "config/pcmanfm-qt/lxqt/settings.conf";
  for (const std::string& file : {users, home_ / "wallpaper/wallpaper-A.bmp"}) {
    std::filesystem::create_directories(home_ / "wallpaper");
    std::filesystem::copy_file("src/platform/qt/artwork/types/BMP.bmp", file);
  }
  Put(settings, "[Desktop]\nWallpaper=" + users + "\nWallpaperMode=stretch\n");
  const ChildProgram desktop({"pcmanfm-qt", "--desktop", "--profile=lxqt"}, false, variables);
  constexpr int millisecondsAtMost = 60000;
  ASSERT_TRUE(
      RunProgram({"gdbus", "wait", "--address=" + daemon_.Line(), "--timeout=55", "org.pcmanfm.PCManFM"},
                 millisecondsAtMost));

  tools_.folder = home_ / "wallpaper";
  PcmanfmQtBackend backend(tools_);
  EXPECT_FALSE(backend.ShowsOurs());
  const auto before = backend.Remember();
  // It has its name on the bus a moment before it answers to it.
  bool taken = false;
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!taken && std::chrono::steady_clock::now() < end) {
    taken = backend.Set(home_ / "wallpaper/wallpaper-A.bmp", WallpaperMode::Tiled);
  }
  EXPECT_TRUE(taken);
  EXPECT_THAT(Get(settings), HasSubstr("Wallpaper=" + (home_ / "wallpaper/wallpaper-A.bmp")));
  EXPECT_TRUE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_THAT(Get(settings), HasSubstr("Wallpaper=" + users));
  EXPECT_FALSE(backend.ShowsOurs());
}

TEST_F(BusDesktopsTest, Lxqt_without_its_desktop_is_not_asked) {
  PcmanfmQtBackend backend(tools_);
  EXPECT_FALSE(backend.Set(ours_, WallpaperMode::Centered));
}

// What Plasma's shell is asked; it answers that so many desktops took it.
TEST_F(BusDesktopsTest, Plasma_is_given_one_script_over_the_bus) {
  RecordingService shell(daemon_.Line(), "org.kde.plasmashell",
                         [](const QDBusMessage&) { return QVariantList{QStringLiteral("2")}; });
  ASSERT_TRUE(shell.Owns());
  PlasmaBackend backend(tools_);
  EXPECT_TRUE(Meanwhile([&] { return backend.Set(ours_, WallpaperMode::Tiled); }));
  ASSERT_EQ(shell.calls.size(), 1);
  const QDBusMessage call = shell.calls.front();
  EXPECT_EQ(call.path(), "/PlasmaShell");
  EXPECT_EQ(call.interface(), "org.kde.PlasmaShell");
  EXPECT_EQ(call.member(), "evaluateScript");
  ASSERT_EQ(call.arguments().size(), 1);
  const std::string script = call.arguments().front().toString().toStdString();
  EXPECT_THAT(script, HasSubstr("d.wallpaperPlugin = 'org.kde.image';"));
  EXPECT_THAT(script, HasSubstr("d.writeConfig('FillMode', 3);"));
  EXPECT_THAT(script,
              HasSubstr("d.writeConfig('Image', \"file:///home/ada/my%20pictures/wallpaper-A.bmp\");"));
}

TEST_F(BusDesktopsTest, The_portal_gets_a_descriptor_and_two_options) {
  Put(home_ / "w.bmp", "picture");
  RecordingService portal(daemon_.Line(), "org.freedesktop.portal.Desktop", [](const QDBusMessage& message) {
    return message.member() == "Get" ? QVariantList{QVariant::fromValue(QDBusVariant(1U))}
                                     : QVariantList{QVariant::fromValue(QDBusObjectPath("/request"))};
  });
  ASSERT_TRUE(portal.Owns());
  EXPECT_TRUE(Meanwhile([&] { return PortalBackend(tools_).Set(home_ / "w.bmp", WallpaperMode::Centered); }));
  ASSERT_EQ(portal.calls.size(), 2);
  EXPECT_EQ(portal.calls[1].signature(), "sha{sv}");
  const auto options = qdbus_cast<QVariantMap>(portal.calls[1].arguments().at(2));
  EXPECT_EQ(options.value("show-preview"), QVariant(false));
  EXPECT_EQ(options.value("set-on"), QVariant("background"));
}

struct CountedGrant final : Grant {
  explicit CountedGrant(int& itsCount) : count(itsCount) { ++count; }
  ~CountedGrant() override { --count; }
  int& count;
};

TEST_F(BusDesktopsTest, The_screen_is_kept_awake_by_the_session_and_given_back) {
  RecordingService session(daemon_.Line(), "org.gnome.SessionManager", [](const QDBusMessage& message) {
    return message.member() == "Inhibit" ? QVariantList{4711U} : QVariantList();
  });
  ASSERT_TRUE(session.Owns());
  int grants = 0;
  ScreenAwake screen(bus_, [&] { return std::make_unique<CountedGrant>(grants); });
  Keep(screen, true);
  Keep(screen, true);
  EXPECT_EQ(grants, 1);
  Keep(screen, false);
  EXPECT_EQ(grants, 0);
  ASSERT_EQ(session.calls.size(), 2);
  EXPECT_EQ(session.calls[0].signature(), "susu");
  EXPECT_EQ(session.calls[0].arguments().at(3).toUInt(), 8U);
  EXPECT_EQ(session.calls[1].member(), "Uninhibit");
  EXPECT_EQ(session.calls[1].arguments().at(0).toUInt(), 4711U);
}

TEST_F(BusDesktopsTest, Without_a_session_manager_the_screen_saver_is_asked) {
  RecordingService saver(daemon_.Line(), "org.freedesktop.ScreenSaver", [](const QDBusMessage& message) {
    return message.member() == "Inhibit" ? QVariantList{7U} : QVariantList();
  });
  ASSERT_TRUE(saver.Owns());
  ScreenAwake screen(bus_, {});
  Keep(screen, true);
  Keep(screen, false);
  ASSERT_EQ(saver.calls.size(), 2);
  EXPECT_EQ(saver.calls[0].arguments().at(0).toString(), "Lumidex");
  EXPECT_EQ(saver.calls[1].member(), "UnInhibit");
}

TEST_F(BusDesktopsTest, The_portal_keeps_the_screen_awake_by_an_object_that_is_closed) {
  RecordingService portal(daemon_.Line(), "org.freedesktop.portal.Desktop", [](const QDBusMessage& message) {
    return message.member() == "Inhibit" ? QVariantList{QVariant::fromValue(QDBusObjectPath("/request/1"))}
                                         : QVariantList();
  });
  ASSERT_TRUE(portal.Owns());
  ScreenAwake screen(bus_, {});
  Keep(screen, true);
  Keep(screen, false);
  ASSERT_EQ(portal.calls.size(), 2);
  EXPECT_EQ(portal.calls[0].signature(), "sua{sv}");
  EXPECT_EQ(portal.calls[1].path(), "/request/1");
  EXPECT_EQ(portal.calls[1].member(), "Close");
}

TEST_F(BusDesktopsTest, Where_nobody_keeps_the_screen_awake_nothing_breaks) {
  ScreenAwake screen(bus_, [] { return nullptr; });
  screen.Keep(true);
  screen.Keep(false);
  screen.Keep(false);
  SUCCEED();
}

}  // namespace
}  // namespace lumidex

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
