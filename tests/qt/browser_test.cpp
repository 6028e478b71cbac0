// The browser port with the real program for pages, against pages of this machine: one that comes, one that
// is slow, one that is not there.

#include "platform/qt/browser.h"

#include <gmock/gmock.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <atomic>
#include <thread>

#include "forms/frmBrowser.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

// The engine takes its time on a busy machine; nobody waits for longer than the thing itself takes.
constexpr int mostMilliseconds = 60000;

template <class Condition>
bool Comes(Condition&& condition) {
  QElapsedTimer clock;
  clock.start();
  while (!condition() && clock.elapsed() < mostMilliseconds) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
  }
  return condition();
}

// Serves pages on this machine until it goes. "/slow" is answered when the test says so.
class PageServer {
 public:
  PageServer() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* general = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, general, length) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, general, &length) != 0) {
      throw std::runtime_error("no server");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~PageServer() {
    ends_ = true;
    thread_.join();
    for (const int waiting : waiting_) close(waiting);
    close(listener_);
  }
  PageServer(const PageServer&) = delete;
  PageServer& operator=(const PageServer&) = delete;

  std::string Address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }
  void LetSlowPagesCome() { slowMayCome_ = true; }
  bool SlowWasAsked() const { return slowWasAsked_; }

 private:
  static void Answer(int connection, const std::string& title) {
    const std::string body =
        "<html><head><title>" + title + "</title></head><body>" + title + "</body></html>";
    const std::string answer =
        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: " +
        std::to_string(body.size()) + "\r\n\r\n" + body;
    [[maybe_unused]] const auto sent = send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
    close(connection);
  }

  void Take(int connection) {
    char request[4096];
    const ssize_t count = recv(connection, request, sizeof request, 0);
    const std::string text(request, count > 0 ? static_cast<std::size_t>(count) : 0);
    if (text.starts_with("GET /slow")) {
      waiting_.push_back(connection);
      slowWasAsked_ = true;
    } else {
      Answer(connection, "A page  of\nthis machine");
    }
  }

  void Serve() {
    while (!ends_) {
      pollfd waits{listener_, POLLIN, 0};
      constexpr int turnMilliseconds = 20;
      if (poll(&waits, 1, turnMilliseconds) > 0) {
        const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0) Take(connection);
      }
      if (!slowMayCome_) continue;
      for (const int connection : waiting_) Answer(connection, "The slow page");
      waiting_.clear();
    }
  }

  int listener_;
  std::uint16_t port_ = 0;
  std::thread thread_;
  std::atomic<bool> ends_ = false, slowMayCome_ = false, slowWasAsked_ = false;
  std::vector<int> waiting_;
};

class BrowserPort : public testing::Test {
 protected:
  void SetUp() override {
    if (!QFileInfo(QStringLiteral(LUMIDEX_BROWSER)).isExecutable()) {
      GTEST_SKIP() << "lumidex-browser was not built: Qt WebEngine is not installed";
    }
  }
  // Tests may run as root, for whom the engine has no sandbox.
  QtBrowser browser{
      QStringLiteral(LUMIDEX_BROWSER),
      {QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX=1"), QStringLiteral("QT_QPA_PLATFORM=offscreen")}};
  PageServer server;
};

TEST_F(BrowserPort, A_page_is_busy_at_once_and_has_its_name_when_it_is_there) {
  browser.Navigate(0, server.Address("/"));
  EXPECT_TRUE(browser.Busy(0));
  ASSERT_TRUE(Comes([&] { return !browser.Busy(0); }));
  EXPECT_EQ(browser.LocationName(0), "A page of this machine");
}

TEST_F(BrowserPort, A_slow_page_keeps_its_browser_busy_and_no_other) {
  browser.Navigate(0, server.Address("/slow"));
  browser.Navigate(1, server.Address("/"));
  ASSERT_TRUE(Comes([&] { return !browser.Busy(1) && server.SlowWasAsked(); }));
  EXPECT_TRUE(browser.Busy(0));
  server.LetSlowPagesCome();
  ASSERT_TRUE(Comes([&] { return !browser.Busy(0); }));
  EXPECT_EQ(browser.LocationName(0), "The slow page");
}

TEST_F(BrowserPort, A_page_that_is_down_takes_the_name_of_its_place) {
  // Nobody listens there.
  browser.Navigate(2, "http://127.0.0.1:9/");
  ASSERT_TRUE(Comes([&] { return !browser.Busy(2); }));
  EXPECT_EQ(browser.LocationName(2), "127.0.0.1");
}

TEST_F(BrowserPort, After_its_end_it_starts_anew) {
  browser.Navigate(0, server.Address("/slow"));
  browser.End();
  EXPECT_FALSE(browser.Busy(0));
  EXPECT_EQ(browser.GetState(), QtBrowser::State::Idle);
  browser.Navigate(0, server.Address("/"));
  ASSERT_TRUE(Comes([&] { return !browser.Busy(0); }));
  EXPECT_EQ(browser.LocationName(0), "A page of this machine");
}

TEST(BrowserAsRoot, Pages_are_refused_unless_the_user_does_without_a_sandbox) {
  if (geteuid() != 0 || !QFileInfo(QStringLiteral(LUMIDEX_BROWSER)).isExecutable()) {
    GTEST_SKIP() << "only root is refused, by lumidex-browser";
  }
  QtBrowser browser(QStringLiteral(LUMIDEX_BROWSER), {QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX=0"),
                                                      QStringLiteral("QTWEBENGINE_CHROMIUM_FLAGS="),
                                                      QStringLiteral("QT_QPA_PLATFORM=offscreen")});
  browser.Navigate(0, "http://www.korvane.example/");
  ASSERT_TRUE(Comes([&] { return browser.GetState() != QtBrowser::State::Running && !browser.Busy(0); }));
  EXPECT_EQ(browser.GetState(), QtBrowser::State::Refused);
  EXPECT_EQ(browser.LocationName(0), "Pages are not available");
}

TEST(BrowserWithoutProgram, Nothing_is_busy_and_the_name_says_so) {
  QtBrowser browser(QStringLiteral("/nowhere/lumidex-browser"));
  browser.Navigate(1, "http://www.korvane.example/");
  EXPECT_FALSE(browser.Busy(1));
  EXPECT_EQ(browser.GetState(), QtBrowser::State::Missing);
  EXPECT_EQ(browser.LocationName(1), "Pages are not available");
  EXPECT_EQ(browser.Address(1), "http://www.korvane.example/");
}

TEST(BrowserWithoutProgram, A_program_that_ends_leaves_nothing_busy) {
  QtBrowser browser(QStringLiteral("/bin/false"));
  browser.Navigate(0, "http://www.korvane.example/");
  ASSERT_TRUE(Comes([&] { return browser.GetState() == QtBrowser::State::Ended; }));
  EXPECT_FALSE(browser.Busy(0));
  EXPECT_EQ(browser.LocationName(0), "Pages are not available");
}

TEST(BrowserWindow, Without_the_program_the_page_area_says_so_and_offers_the_desktops_browser) {
  QtWorld world;
  QtBrowser browser(QStringLiteral("/nowhere/lumidex-browser"));
  Platform platform{world.headless.files,   world.events,           world.dialogs,
                    world.windows,          world.headless.events,  world.headless.process,
                    world.clipboard,        world.headless.desktop, world.headless.tray,
                    world.headless.popup,   world.headless.shell,   world.headless.settings,
                    world.headless.loader,  world.headless.folders, browser,
                    world.headless.decoding};
  frmBrowserWindow form(platform);
  world.views.Attach(form);
  browser.Navigate(0, "http://www.korvane.example/");
  form.Show();
  Settle();
  auto& area = WidgetOf<QWidget>(world, form.brwWebBrowser(0));
  EXPECT_EQ(area.findChild<QLabel*>()->text(),
            QStringLiteral("Pages can't be shown here: lumidex-browser is not installed."));
  auto* elsewhere = area.findChild<QPushButton*>();
  ASSERT_TRUE(elsewhere->isVisible());
  world.headless.log.Clear();
  elsewhere->click();
  EXPECT_THAT(world.headless.log.Lines(),
              testing::Contains(testing::HasSubstr("\"Open\" \"http://www.korvane.example/\"")));
  world.views.Close();
}

}  // namespace
}  // namespace lumidex
