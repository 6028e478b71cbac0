#include "controls/signal.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace lumidex {
namespace {

using testing::ElementsAre;

struct SignalTest : testing::Test {
  std::unique_ptr<Signal<int>> signal = std::make_unique<Signal<int>>();
  std::vector<std::string> told;
  auto Tell(std::string name) {
    return [this, name](int number) { told.push_back(name + std::to_string(number)); };
  }
};

TEST_F(SignalTest, Slots_are_called_in_the_order_of_connecting) {
  const auto a = signal->Connect(Tell("a")), b = signal->Connect(Tell("b"));
  signal->Emit(1);
  EXPECT_THAT(told, ElementsAre("a1", "b1"));
}

TEST_F(SignalTest, A_slot_may_emit_again) {
  const auto a = signal->Connect([this](int number) {
    told.push_back("a" + std::to_string(number));
    if (number > 0) signal->Emit(number - 1);
  });
  const auto b = signal->Connect(Tell("b"));
  signal->Emit(1);
  EXPECT_THAT(told, ElementsAre("a1", "a0", "b0", "b1"));
}

TEST_F(SignalTest, A_slot_may_cut_itself_and_still_use_what_it_holds) {
  Connection own;
  auto held = std::make_shared<std::string>("held");
  own = signal->Connect([this, &own, held](int) {
    own.Cut();
    told.push_back(*held);
  });
  signal->Emit(1);
  signal->Emit(2);
  EXPECT_THAT(told, ElementsAre("held"));
}

TEST_F(SignalTest, A_slot_may_cut_a_later_one_which_is_then_not_called) {
  Connection later;
  const auto a = signal->Connect([&](int) { later.Cut(); });
  later = signal->Connect(Tell("later"));
  signal->Emit(1);
  EXPECT_TRUE(told.empty());
}

TEST_F(SignalTest, A_slot_connected_while_emitting_hears_the_next_emission_only) {
  Connection added;
  const auto a = signal->Connect([&](int number) {
    if (number == 1) added = signal->Connect(Tell("added"));
  });
  signal->Emit(1);
  EXPECT_TRUE(told.empty());
  signal->Emit(2);
  EXPECT_THAT(told, ElementsAre("added2"));
}

TEST_F(SignalTest, A_slot_may_destroy_the_signal) {
  const auto a = signal->Connect([this](int) { signal.reset(); });
  const auto b = signal->Connect(Tell("b"));
  signal->Emit(1);
  EXPECT_EQ(signal, nullptr);
}

TEST_F(SignalTest, A_slot_that_rests_is_passed_over_until_it_rests_no_more) {
  auto a = signal->Connect(Tell("a"));
  a.Rest(true);
  signal->Emit(1);
  const auto b = signal->Connect(Tell("b"));
  signal->Emit(2);
  a.Rest(false);
  signal->Emit(3);
  EXPECT_THAT(told, ElementsAre("b2", "a3", "b3"));
}

TEST_F(SignalTest, A_connection_that_was_cut_may_be_told_to_rest) {
  auto a = signal->Connect(Tell("a"));
  a.Cut();
  a.Rest(true);
  a.Rest(false);
  signal->Emit(1);
  EXPECT_TRUE(told.empty());
}

TEST_F(SignalTest, A_connection_cuts_when_it_dies) {
  { const auto brief = signal->Connect(Tell("brief")); }
  signal->Emit(1);
  EXPECT_TRUE(told.empty());
}

}  // namespace
}  // namespace lumidex
