// When the icon in the notification area looks for a place.

#include "platform/qt/tray.h"

#include <QElapsedTimer>
#include <atomic>
#include <chrono>
#include <thread>

#include "qt/qt_world.h"

namespace lumidex {
namespace {

class TrayLook : public testing::Test {
 protected:
  bool Comes(int number) {
    constexpr int mostMilliseconds = 60000;
    QElapsedTimer clock;
    clock.start();
    while (looks < number && clock.elapsed() < mostMilliseconds) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
    }
    return looks >= number;
  }

  QtWorld world;
  QtPopup popup{world.events, world.views};
  std::atomic<int> looks = 0;
  QtTray tray{world.events, world.views, popup, [this] {
                ++looks;
                return TrayHost::None;
              }};
};

TEST_F(TrayLook, waits_for_the_windows_of_the_start_and_is_taken_again_while_there_is_no_place) {
  TrayIconRecord record;
  record.cbSize = TrayIconRecord::Size;
  ASSERT_TRUE(tray.Shell_NotifyIconA(NIM_ADD, record));
  // Time for a thread, and no event is served.
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(looks, 0);
  EXPECT_TRUE(Comes(3));
  EXPECT_FALSE(tray.IsAvailable());
}

TEST_F(TrayLook, is_not_taken_for_an_icon_that_has_gone) {
  TrayIconRecord record;
  record.cbSize = TrayIconRecord::Size;
  ASSERT_TRUE(tray.Shell_NotifyIconA(NIM_ADD, record));
  ASSERT_TRUE(tray.Shell_NotifyIconA(NIM_DELETE, record));
  QTest::qWait(300);
  EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace lumidex
