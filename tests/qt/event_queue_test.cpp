#include "platform/qt/event_queue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>
#include <algorithm>
#include <future>
#include <stdexcept>
#include <thread>
#include <utility>

#include "support/no_threads.h"

namespace lumidex {
namespace {

TEST(QtEventQueue, Yield_serves_what_was_posted_and_returns) {
  QtEventQueue events;
  int served = 0;
  events.Post([&] { ++served; });
  events.Post([&] { ++served; });
  EXPECT_EQ(served, 0);
  events.Yield();
  EXPECT_EQ(served, 2);
}

TEST(QtEventQueue, Yields_that_follow_each_other_at_once_still_serve_what_is_posted) {
  QtEventQueue events;
  int served = 0;
  for (int i = 1; i <= 1000; ++i) {
    events.Post([&] { ++served; });
    events.Yield();
    events.Yield();
    EXPECT_EQ(served, i);
  }
}

TEST(QtEventQueue, A_timer_ticks_in_a_routine_that_does_nothing_but_yield) {
  QtEventQueue events;
  int ticks = 0;
  events.StartTimer(1, [&] { ++ticks; });
  while (ticks < 3) events.Yield();
}

TEST(QtEventQueue, Another_thread_may_post) {
  QtEventQueue events;
  std::thread::id servedOn;
  std::thread other([&] { events.Post([&] { servedOn = std::this_thread::get_id(); }); });
  events.RunUntil([&] { return servedOn != std::thread::id(); });
  other.join();
  EXPECT_EQ(servedOn, std::this_thread::get_id());
}

TEST(QtEventQueue, A_nested_loop_ends_as_soon_as_it_is_done) {
  QtEventQueue events;
  int served = 0;
  for (int i = 0; i < 2; ++i) events.StartTimer(1, [&] { ++served; });
  events.RunUntil([&] { return served >= 1; });
  // Both timers may have fired in the turn that ended the loop, but no later turn ran.
  EXPECT_GE(served, 1);
  EXPECT_LE(served, 2);
}

TEST(QtEventQueue, A_loop_that_is_done_from_the_start_serves_nothing) {
  QtEventQueue events;
  bool served = false;
  events.Post([&] { served = true; });
  events.RunUntil([] { return true; });
  EXPECT_FALSE(served);
  events.Yield();
}

TEST(QtEventQueue, An_outer_loop_that_is_done_waits_for_the_inner_one) {
  QtEventQueue events;
  bool outerDone = false;
  bool innerDone = false;
  events.Post([&] {
    outerDone = true;
    events.Post([&] { innerDone = true; });
    events.RunUntil([&] { return innerDone; });
    EXPECT_TRUE(innerDone);
  });
  events.RunUntil([&] { return outerDone; });
  EXPECT_TRUE(innerDone);
}

TEST(QtEventQueue, A_timer_ticks_until_it_is_stopped) {
  QtEventQueue events;
  int ticks = 0;
  const TimerId timer = events.StartTimer(1, [&] { ++ticks; });
  events.RunUntil([&] { return ticks == 3; });
  events.StopTimer(timer);
  events.Wait(5);
  EXPECT_EQ(ticks, 3);
}

TEST(QtEventQueue, A_timer_may_stop_itself_while_it_ticks) {
  QtEventQueue events;
  int ticks = 0;
  TimerId timer = 0;
  timer = events.StartTimer(1, [&, kept = std::string(100, 'x')] {
    events.StopTimer(timer);
    ticks += static_cast<int>(kept.size());
  });
  events.RunUntil([&] { return ticks > 0; });
  events.Wait(5);
  EXPECT_EQ(ticks, 100);
}

TEST(QtEventQueue, A_tick_may_come_again_inside_its_own_yields) {
  QtEventQueue events;
  int depth = 0, deepest = 0;
  const TimerId timer = events.StartTimer(1, [&] {
    deepest = std::max(deepest, ++depth);
    events.RunUntil([&] { return deepest >= 3; });
    --depth;
  });
  events.RunUntil([&] { return deepest >= 3; });
  events.StopTimer(timer);
  EXPECT_GE(deepest, 3);
}

TEST(QtEventQueue, Ticks_are_nested_no_deeper_than_they_may_be) {
  QtEventQueue events;
  int depth = 0, deepest = 0, others = 0;
  const TimerId timer = events.StartTimer(1, [&] {
    deepest = std::max(deepest, ++depth);
    if (deepest < EventQueue::mostNestedTicks) {
      events.RunUntil([&] { return deepest >= EventQueue::mostNestedTicks; });
    } else {
      const int before = others;
      events.RunUntil([&] { return others >= before + 5; });
    }
    --depth;
  });
  const TimerId other = events.StartTimer(1, [&] { ++others; });
  events.RunUntil([&] { return deepest >= EventQueue::mostNestedTicks && depth == 0; });
  events.StopTimer(timer);
  events.StopTimer(other);
  EXPECT_EQ(deepest, EventQueue::mostNestedTicks);
}

TEST(QtEventQueue, Waiting_ends_without_an_event_after_its_time) {
  QtEventQueue events;
  QElapsedTimer time;
  time.start();
  // Qt's own events may end single waits earlier.
  while (time.elapsed() < 20) events.Wait(20);
  EXPECT_GE(time.elapsed(), 20);
}

TEST(QtEventQueue, Every_event_goes_through_the_guard) {
  QtEventQueue events;
  int caught = 0;
  events.Guard = [&](const EventQueue::Work& work) {
    try {
      work();
    } catch (const std::runtime_error&) {
      ++caught;
    }
  };
  events.Post([] { throw std::runtime_error("posted"); });
  const TimerId timer = events.StartTimer(1, [] { throw std::runtime_error("tick"); });
  events.RunUntil([&] { return caught >= 2; });
  events.StopTimer(timer);
  EXPECT_GE(caught, 2);
}

TEST(QtEventQueue, The_process_ends_at_once_from_inside_a_nested_loop) {
  EXPECT_EXIT(
      {
        QtEventQueue events;
        events.Post([&] { events.RunUntil([] { return false; }); });
        events.StartTimer(1, [&] { events.EndProcess(3); });
        events.RunUntil([] { return false; });
      },
      testing::ExitedWithCode(3), "");
}

TEST(QtEventQueue, Work_aside_runs_on_another_thread_and_is_waited_for) {
  QtEventQueue events;
  std::thread::id workedOn;
  events.RunAside([&] { workedOn = std::this_thread::get_id(); });
  EXPECT_NE(workedOn, std::thread::id());
  EXPECT_NE(workedOn, std::this_thread::get_id());
  EXPECT_FALSE(events.IsAside());
}

TEST(QtEventQueue, What_work_aside_raises_is_raised_to_who_asked_for_it) {
  QtEventQueue events;
  EXPECT_THROW(events.RunAside([] { throw std::domain_error("aside"); }), std::domain_error);
  EXPECT_FALSE(events.IsAside());
}

TEST(QtEventQueue, Without_threads_work_aside_is_done_at_once) {
  const NoThreads none;
  QtEventQueue events;
  std::thread::id workedOn;
  events.RunAside([&] { workedOn = std::this_thread::get_id(); });
  EXPECT_EQ(workedOn, std::this_thread::get_id());
}

// Tells when it has been painted.
class NoticingWidget final : public QWidget {
 public:
  std::promise<void> painted;

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!std::exchange(isPainted_, true)) painted.set_value();
  }

 private:
  bool isPainted_ = false;
};

TEST(QtEventQueue, Work_aside_that_waits_for_a_paint_gets_it_and_nothing_else_is_served) {
  QtEventQueue events;
  NoticingWidget widget;
  std::string served;
  events.Post([&] { served += "posted"; });
  events.StartTimer(1, [&] { served += "ticked"; });
  widget.show();
  events.RunAside([&] {
    widget.painted.get_future().wait();
    EXPECT_EQ(served, "");
  });
  EXPECT_EQ(served, "");
  events.Yield();
  EXPECT_TRUE(served.starts_with("posted") || served.ends_with("posted")) << served;
}

}  // namespace
}  // namespace lumidex
