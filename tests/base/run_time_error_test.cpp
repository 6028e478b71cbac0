#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include "number_raised.h"

namespace lumidex {
namespace {

TEST(RunTimeErrors, An_error_is_about_no_file_unless_it_is_told) {
  EXPECT_EQ(RunTimeError(ErrorNumber::Overflow).Path(), "");
}

TEST(RunTimeErrors, An_error_keeps_its_number_and_text_when_it_names_a_file) {
  const RunTimeError error = RunTimeError(ErrorNumber::InvalidPicture, "no palette").About("/a.gif");
  EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
  EXPECT_STREQ(error.what(), "no palette");
  EXPECT_EQ(error.Path(), "/a.gif");
}

TEST(RunTimeErrors, Who_knows_the_file_best_names_it) {
  EXPECT_EQ(RunTimeError(ErrorNumber::DiskFull).About("/a.old").About("/a").Path(), "/a.old");
}

TEST(RunTimeErrors, What_is_raised_in_the_work_on_a_file_names_it) {
  EXPECT_EQ(PathRaisedBy([] { WorkOn("/a.lst", [] { throw RunTimeError(ErrorNumber::InputPastEnd); }); }),
            "/a.lst");
}

TEST(RunTimeErrors, What_names_another_file_goes_on_naming_that) {
  const auto read = [] { throw RunTimeError(ErrorNumber::FileNotFound).About("/b.pal"); };
  EXPECT_EQ(PathRaisedBy([&] { WorkOn("/a.cut", read); }), "/b.pal");
}

TEST(RunTimeErrors, An_error_of_a_kind_of_its_own_stays_of_that_kind) {
  struct Special : RunTimeError {
    Special() : RunTimeError(ErrorNumber::DiskFull) {}
  };
  try {
    WorkOn("/a", [] { throw Special(); });
    ADD_FAILURE() << "nothing was raised";
  } catch (const Special& error) {
    EXPECT_EQ(error.Path(), "/a");
  }
}

TEST(RunTimeErrors, The_work_on_a_file_hands_its_result_on) {
  EXPECT_EQ(WorkOn("/a", [] { return 7; }), 7);
}

}  // namespace
}  // namespace lumidex
