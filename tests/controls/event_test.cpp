#include <gtest/gtest.h>

#include "controls/element.h"

namespace lumidex {
namespace {

struct EventTest : testing::Test {
  Event<int> event, other;
  int sum = 0;
  Event<int>::Handler Add() {
    return [this](int value) { sum += value; };
  }
};

TEST_F(EventTest, Without_a_handler_firing_does_nothing) {
  event(1);
  EXPECT_FALSE(event);
  event = Add();
  EXPECT_TRUE(event);
  event = Event<int>::Handler();
  EXPECT_FALSE(event);
  event(1);
  EXPECT_EQ(sum, 0);
}

TEST_F(EventTest, Two_may_have_one_handler) {
  event = other = Add();
  event(1);
  other(10);
  EXPECT_EQ(sum, 11);
  event = Event<int>::Handler();
  other(100);
  EXPECT_EQ(sum, 111);
}

TEST_F(EventTest, One_without_a_handler_takes_it_from_another) {
  event = Add();
  event = other;
  EXPECT_FALSE(event);
}

TEST_F(EventTest, A_handler_that_gives_its_event_another_one_runs_to_its_end) {
  event = [this, much = std::string(100, 'a')](int value) {
    event = Add();
    sum += value * static_cast<int>(much.size());
  };
  event(2);
  EXPECT_EQ(sum, 200);
  event(2);
  EXPECT_EQ(sum, 202);
}

}  // namespace
}  // namespace lumidex
