#include "platform/headless/simulated_events.h"

#include <gmock/gmock.h>

#include "platform/headless/script_ends.h"

namespace lumidex {
namespace {

struct SimulatedEventsTest : testing::Test {
  CallLog log;
  SimulatedEvents events{log};
  std::vector<std::string> served;
  EventQueue::Work Note(std::string what) {
    return [this, what] { served.push_back(what); };
  }
};

using testing::ElementsAre;

TEST_F(SimulatedEventsTest, A_yield_serves_posted_work_in_its_order) {
  events.Post(Note("first"));
  events.Post(Note("second"));
  events.Yield();
  EXPECT_THAT(served, ElementsAre("first", "second"));
}

TEST_F(SimulatedEventsTest, Yields_inside_yields_serve_a_long_queue_on_a_short_stack) {
  int nested = 0, deepest = 0, count = 0;
  for (int i = 0; i < 5000; ++i) {
    events.Post([&] {
      ++count;
      deepest = std::max(deepest, ++nested);
      events.Yield();
      --nested;
    });
  }
  events.Yield();
  EXPECT_EQ(count, 5000);
  EXPECT_EQ(deepest, EventQueue::mostNestedYields);
}

TEST_F(SimulatedEventsTest, A_timer_fires_only_when_its_period_has_passed) {
  events.StartTimer(100, Note("tick"));
  events.Advance(99);
  EXPECT_TRUE(served.empty());
  events.Advance(1);
  EXPECT_THAT(served, ElementsAre("tick"));
}

TEST_F(SimulatedEventsTest, A_tick_may_come_again_inside_its_own_yields) {
  events.StartTimer(10, [this] {
    served.push_back("begin");
    if (served.size() == 1) events.Wait(50);
    served.push_back("end");
  });
  events.Advance(10);
  EXPECT_THAT(served, ElementsAre("begin", "begin", "end", "end"));
}

TEST_F(SimulatedEventsTest, Ticks_are_nested_no_deeper_than_they_may_be) {
  int depth = 0, deepest = 0;
  TimerId timer = 0;
  timer = events.StartTimer(10, [&] {
    deepest = std::max(deepest, ++depth);
    events.Advance(10);
    // One that always takes as long as its period would never end.
    events.StopTimer(timer);
    --depth;
  });
  events.Advance(10);
  EXPECT_EQ(deepest, EventQueue::mostNestedTicks);
  EXPECT_EQ(depth, 0);
}

TEST_F(SimulatedEventsTest, Setting_the_clock_does_not_touch_the_timers) {
  events.StartTimer(10, Note("tick"));
  events.SetNow({2002, 3, 15, 23, 0, 0});
  events.Yield();
  EXPECT_TRUE(served.empty());
}

TEST_F(SimulatedEventsTest, A_stopped_timer_stays_silent) {
  const TimerId timer = events.StartTimer(10, Note("tick"));
  events.StopTimer(timer);
  events.Advance(100);
  EXPECT_TRUE(served.empty());
}

TEST_F(SimulatedEventsTest, A_timer_may_stop_itself) {
  TimerId timer = 0;
  timer = events.StartTimer(10, [&] {
    served.push_back("tick");
    events.StopTimer(timer);
  });
  events.Advance(100);
  EXPECT_THAT(served, ElementsAre("tick"));
}

TEST_F(SimulatedEventsTest, Waiting_goes_on_to_the_next_timer_but_no_further_than_asked) {
  events.SetNow({2002, 3, 15, 10, 0, 0});
  events.StartTimer(3000, Note("tick"));
  events.Wait(1000);
  EXPECT_DOUBLE_EQ(events.TimeOfDay(), 36001.0);
  events.Wait(60000);
  EXPECT_DOUBLE_EQ(events.TimeOfDay(), 36003.0);
  EXPECT_THAT(served, ElementsAre("tick"));
}

TEST_F(SimulatedEventsTest, The_time_of_day_falls_back_to_zero_at_midnight) {
  events.SetNow({2002, 12, 31, 23, 59, 59});
  events.Advance(1500);
  EXPECT_DOUBLE_EQ(events.TimeOfDay(), 0.5);
  const DateTime now = events.Now();
  EXPECT_EQ(now.year, 2003);
  EXPECT_EQ(now.month, 1);
  EXPECT_EQ(now.day, 1);
}

TEST_F(SimulatedEventsTest, A_modal_loop_lets_the_user_act_until_it_is_done) {
  int actions = 0;
  events.NextUserAction = [&] {
    ++actions;
    return true;
  };
  events.RunUntil([&] { return actions == 3; });
  EXPECT_EQ(actions, 3);
}

TEST_F(SimulatedEventsTest, A_modal_loop_serves_events_before_the_user_acts) {
  events.Post(Note("event"));
  events.NextUserAction = [this] {
    served.push_back("user");
    return true;
  };
  events.RunUntil([this] { return served.size() == 2; });
  EXPECT_THAT(served, ElementsAre("event", "user"));
}

TEST_F(SimulatedEventsTest, A_modal_loop_that_waits_in_vain_says_so) {
  EXPECT_THROW(events.RunUntil([] { return false; }), NoUserActionLeft);
}

TEST_F(SimulatedEventsTest, No_trap_of_the_program_holds_its_end_up) {
  const auto program = [this] {
    try {
      events.EndProcess(3);
    } catch (const std::exception&) {
      served.push_back("trapped");
    }
  };
  try {
    program();
    FAIL() << "the program went on";
  } catch (const ProgramEnded& end) {
    EXPECT_EQ(end.exitCode, 3);
  }
  EXPECT_TRUE(served.empty());
}

TEST_F(SimulatedEventsTest, Yielding_for_ever_with_nothing_to_wake_it_counts_as_hung) {
  EXPECT_THROW(
      {
        while (true) events.Yield();
      },
      ProgramHung);
  EXPECT_THROW(events.Stall(), ProgramHung);
}

TEST_F(SimulatedEventsTest, Every_event_goes_through_the_guard) {
  events.Guard = [this](const EventQueue::Work& work) {
    served.push_back("guard");
    work();
  };
  events.Post(Note("event"));
  events.StartTimer(5, Note("tick"));
  events.Advance(5);
  EXPECT_THAT(served, ElementsAre("guard", "event", "guard", "tick"));
}

}  // namespace
}  // namespace lumidex
