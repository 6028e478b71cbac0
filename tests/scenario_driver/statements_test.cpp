// No word of a scenario goes unread: what is missing, unknown or left over fails.

#include "scenario_driver/driver_test.h"

namespace lumidex::scenario {
namespace {

TEST(Statements, A_line_that_begins_no_statement_fails_with_its_number) {
  EXPECT_EQ(Outcome("drives\nclik cmdUp\n"), "2: \"clik\" begins no statement");
}

TEST(Statements, A_missing_word_is_told) {
  EXPECT_EQ(Outcome("drives\nfile C:\\a.txt\n"),
            "2: \"picture\", \"text\", \"lines\", \"bytes\", \"size\" or \"empty\" is missing");
  EXPECT_EQ(Outcome("drives\nlink C:\\a to\n"), "2: where the link leads to is missing");
  EXPECT_EQ(OutcomeStarted("resize WPaper2 9600x7200"), "1: \"9600x7200\" stands where \"to\" belongs");
}

TEST(Statements, A_word_too_many_is_refused_before_anything_is_done) {
  EXPECT_EQ(OutcomeStarted("choose mnuFileExit now"), "1: \"now\" is one word too many");
  EXPECT_EQ(OutcomeStarted("wait 5 s more"), "1: \"more\" is one word too many");
  EXPECT_EQ(Outcome("drives\nfile C:\\a.txt empty really\n"), "2: \"really\" is one word too many");
  EXPECT_EQ(OutcomeStarted("expect running fast"), "1: \"fast\" is one word too many");
}

TEST(Statements, Words_that_a_service_does_not_know_are_refused) {
  EXPECT_EQ(
      Outcome("drives\ntray gone\n"),
      "2: \"gone\" is not \"missing\", \"there\", \"left\", \"right\", \"double\", \"message\" or \"move\"");
  EXPECT_EQ(Outcome("drives\ndesktop broken\n"), "2: \"broken\" is not \"works\" or \"fails\"");
  EXPECT_EQ(Outcome("drives\nprograms lost\n"), "2: \"lost\" is not \"there\" or \"missing\"");
  EXPECT_EQ(Outcome("drives\nsettings fails\n"), "2: \"fails\" is not \"work\" or \"fail\"");
  EXPECT_EQ(Outcome("drives\nclipboard fail\n"), "2: \"fail\" is not \"works\" or \"fails\"");
  EXPECT_EQ(Outcome("drives\nloader slow\n"), "2: \"slow\" is not \"works\", \"inverts\" or \"fails\"");
  EXPECT_EQ(Outcome("drives\ndesktop fails RegOpen\n"), "2: the desktop has no call \"RegOpen\"");
  EXPECT_EQ(Outcome("drives\ndrive D: not there\n"), "2: \"there\" stands where \"ready\" belongs");
}

TEST(Statements, A_block_that_nobody_runs_is_refused) {
  EXPECT_EQ(OutcomeStarted("click cmdUp:\n  expect running\n"), "1: the line takes no block");
  EXPECT_EQ(OutcomeStarted("expect running:\n  expect ended\n"), "1: the line takes no block");
}

TEST(Statements, A_block_that_is_needed_is_asked_for) {
  EXPECT_EQ(OutcomeStarted("at yield 3"), "1: an indented block is missing below the line");
  EXPECT_EQ(OutcomeStarted("if running"), "1: an indented block is missing below the line");
  EXPECT_EQ(OutcomeStarted("after 5 s"), "1: an indented block is missing below the line");
}

TEST(Statements, Times_and_numbers_are_read_whole) {
  EXPECT_EQ(OutcomeStarted("wait 5x s"), "1: \"5x\" is no whole number");
  EXPECT_EQ(OutcomeStarted("wait 5 min"), "1: \"min\" is not \"s\" or \"ms\"");
  EXPECT_EQ(Outcome("drives\nclock 25:00:00\n"),
            "2: \"25:00:00\" is neither a time as 23:59:58 nor a day as 2002-03-15");
  EXPECT_EQ(Outcome("drives\nclock 2002-02-30\n"),
            "2: \"2002-02-30\" is neither a time as 23:59:58 nor a day as 2002-03-15");
}

}  // namespace
}  // namespace lumidex::scenario
