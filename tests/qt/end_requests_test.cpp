#include "platform/qt/end_requests.h"

#include <QEvent>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "qt/qt_world.h"

namespace lumidex {
namespace {

TEST(EndRequests, A_signal_ends_the_program_as_soon_as_events_are_served) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    int ends = 0;
    const EndRequests requests([&] { ++ends; }, [] { ADD_FAILURE() << "only the end saves here"; });
    EXPECT_FALSE(EndRequests::IsAsked());
    std::raise(signal);
    EXPECT_TRUE(EndRequests::IsAsked());
    EXPECT_EQ(ends, 0);
    Settle();
    EXPECT_EQ(ends, 1);
    Settle();
    EXPECT_EQ(ends, 1);
  }
}

TEST(EndRequests, The_sessions_manager_ends_the_program) {
  int ends = 0;
  const EndRequests requests([&] { ++ends; }, [] {});
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
  EXPECT_EQ(ends, 1);
}

TEST(EndRequests, The_loss_of_the_display_saves_and_leaves) {
  testing::GTEST_FLAG(death_test_style) = "fast";
  // As the connection to the display does when it breaks.
  EXPECT_EXIT(
      {
        const EndRequests requests([] { std::fputs("ended", stderr); }, [] { std::fputs("saved", stderr); });
        std::exit(0);
      },
      testing::ExitedWithCode(EXIT_FAILURE), "^saved$");
}

}  // namespace
}  // namespace lumidex
