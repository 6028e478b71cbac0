#include "forms/display_requests.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

TEST(DisplayRequests, A_token_is_stale_once_another_picture_is_asked_for) {
  DisplayRequests requests;
  const auto first = requests.AskForPicture("a");
  EXPECT_FALSE(first.IsStale());
  const auto second = requests.AskForPicture("b");
  EXPECT_TRUE(first.IsStale());
  EXPECT_FALSE(second.IsStale());
}

TEST(DisplayRequests, Words_outlive_a_picture_of_their_own_file_only) {
  DisplayRequests requests;
  const DisplayRequests::Telling telling(requests, "a");
  requests.AskForPicture("a");
  EXPECT_FALSE(telling.IsStale());
  EXPECT_EQ(requests.OnItsWay(), "a");
  requests.AskForPicture("b");
  EXPECT_TRUE(telling.IsStale());
  EXPECT_EQ(requests.OnItsWay(), "");
}

TEST(DisplayRequests, What_was_told_is_not_on_its_way_any_longer) {
  DisplayRequests requests;
  {
    const DisplayRequests::Telling outer(requests, "a");
    { const DisplayRequests::Telling inner(requests, "b"); }
    EXPECT_EQ(requests.OnItsWay(), "");
  }
  EXPECT_EQ(requests.OnItsWay(), "");
}

TEST(DisplayRequests, The_newest_zoom_is_the_one_to_place_for) {
  DisplayRequests requests;
  requests.AskForPlace(1.0F);
  requests.AskForPlace(2.0F);
  EXPECT_TRUE(requests.IsMisplaced());
  EXPECT_EQ(requests.TakePlace(), 2.0F);
  EXPECT_FALSE(requests.IsMisplaced());
}

// Asks for itself anew inside itself, and notes how deep it got.
struct Chain {
  DisplayRequests& requests;
  int left;
  int depth = 0, deepest = 0, shown = 0;
  void Show() {
    requests.Run([this] {
      ++shown;
      deepest = std::max(deepest, ++depth);
      if (left-- > 0) Show();
      --depth;
    });
  }
};

TEST(DisplayRequests, Displays_nest_sixteen_deep) {
  DisplayRequests requests;
  Chain chain{requests, 15};
  chain.Show();
  EXPECT_EQ(chain.deepest, 16);
  EXPECT_EQ(chain.shown, 16);
}

TEST(DisplayRequests, What_is_asked_for_deeper_is_shown_by_the_outermost) {
  DisplayRequests requests;
  Chain chain{requests, 100};
  chain.Show();
  EXPECT_EQ(chain.deepest, 16);
  EXPECT_EQ(chain.shown, 101);
}

// Runs `act` inside as many displays as may nest.
void AtTheBottom(DisplayRequests& requests, const std::function<void()>& act, int nested = 1) {
  requests.Run([&] {
    if (nested == DisplayRequests::mostNested) {
      act();
    } else {
      AtTheBottom(requests, act, nested + 1);
    }
  });
}

TEST(DisplayRequests, Of_several_that_were_kept_the_newest_is_shown) {
  DisplayRequests requests;
  std::string shown;
  AtTheBottom(requests, [&] {
    requests.Run([&] { shown += "a"; });
    requests.Run([&] { shown += "b"; });
    EXPECT_EQ(shown, "");
  });
  EXPECT_EQ(shown, "b");
}

TEST(DisplayRequests, Another_zoom_does_not_replace_a_picture_that_was_kept) {
  DisplayRequests requests;
  std::string shown;
  AtTheBottom(requests, [&] {
    requests.RunAgain(1.0F, [&] { shown += "zoom"; });
    requests.Run([&] { shown += "picture"; });
    requests.RunAgain(2.0F, [&] { shown += "zoom"; });
  });
  EXPECT_EQ(shown, "picture");
  AtTheBottom(requests, [&] { requests.RunAgain(1.0F, [&] { shown += " zoom"; }); });
  EXPECT_EQ(shown, "picture zoom");
}

TEST(DisplayRequests, What_was_kept_is_forgotten_with_an_emptied_area) {
  DisplayRequests requests;
  bool shown = false;
  AtTheBottom(requests, [&] {
    requests.Run([&] { shown = true; });
    requests.ForgetKept();
  });
  EXPECT_FALSE(shown);
}

TEST(DisplayRequests, An_error_ends_what_was_kept_and_leaves_room_for_as_many_as_before) {
  DisplayRequests requests;
  bool shown = false;
  EXPECT_THROW(AtTheBottom(requests,
                           [&] {
                             requests.Run([&] { shown = true; });
                             throw RunTimeError(ErrorNumber::Overflow);
                           }),
               RunTimeError);
  Chain chain{requests, 15};
  chain.Show();
  EXPECT_EQ(chain.deepest, 16);
  EXPECT_FALSE(shown);
}

}  // namespace
}  // namespace lumidex
