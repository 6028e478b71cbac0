// Blocks whose moment never comes, or is cut off, fail.

#include "forms/WPaper2.h"
#include "scenario_driver/driver_test.h"

namespace lumidex::scenario {
namespace {

TEST(Flow, A_block_whose_yield_never_comes_fails) {
  EXPECT_EQ(OutcomeStarted("at yield 50:\n  expect running\nfire WPaper2.Activate\n"),
            "1: the yield for this block never came");
}

TEST(Flow, A_block_whose_condition_never_holds_fails) {
  EXPECT_EQ(OutcomeStarted("at yield when global ViewMode = 77:\n  expect running\nfire WPaper2.Activate\n"),
            "1: the yield for this block never came");
}

TEST(Flow, A_block_whose_time_never_comes_fails) {
  EXPECT_EQ(OutcomeStarted("wait 1 s\nafter 5 s:\n  expect running\nwait 4 s\n"),
            "2: the time for this block never came");
}

TEST(Flow, A_failure_inside_a_block_has_its_own_line) {
  EXPECT_THAT(OutcomeStarted("at yield 1:\n  expect ended\nfire WPaper2.Activate\n"),
              StartsWith("2: expect ended"));
  EXPECT_THAT(OutcomeStarted("if running:\n  expect ended\n"), StartsWith("2: expect ended"));
}

TEST(Flow, A_condition_on_a_property_that_a_control_does_not_have_is_a_mistake) {
  EXPECT_EQ(OutcomeStarted("if cmdUp.Captoin = x:\n  expect running\n"),
            "1: there is no \"Captoin\" in cmdUp.Captoin");
}

TEST(Flow, Lines_that_the_end_of_the_program_cuts_off_fail) {
  EXPECT_EQ(OutcomeStarted("at yield 1:\n  choose mnuFileExit\n  expect running\nfire WPaper2.Activate\n"),
            "3: the program has ended before this line");
  EXPECT_EQ(OutcomeStarted("repeat 2:\n  choose mnuFileExit\n"), "1: the program has ended in round 1");
}

TEST(Flow, Blocks_that_never_run_because_another_one_ends_the_program_fail) {
  EXPECT_EQ(OutcomeStarted("at yield 1:\n  choose mnuFileExit\nat yield 1:\n  expect running\n"
                           "fire WPaper2.Activate\nexpect ended\n"),
            "3: the yield for this block never came");
}

TEST(Flow, An_answer_that_nobody_asks_for_fails) {
  EXPECT_EQ(OutcomeStarted("answer input \"5\"\n"),
            "0: an answer was given to a dialog that was never shown");
}

TEST(Flow, A_failure_in_the_block_of_a_box_fails_the_scenario) {
  EXPECT_THAT(OutcomeStarted("cancel file:\n  expect ended\nchoose mnuFileLoadAs\n"),
              StartsWith("2: expect ended"));
}

TEST(Flow, Windows_are_out_of_reach_while_a_box_is_open) {
  EXPECT_EQ(OutcomeStarted("cancel file:\n  click mnuEditToolBar\nchoose mnuFileLoadAs\n"),
            "2: WPaper2 can't be reached while a box is open");
}

void AskForEver(App& app) {
  app.WPaper2.OnClick = [&app] {
    InputRequest request;
    request.prompt = "Once more?";
    while (!app.platform.dialogs.InputBox(request)) {
    }
  };
}

TEST(Flow, A_box_that_comes_back_for_ever_is_told_as_a_hang) {
  EXPECT_EQ(OutcomeStarted("click WPaper2\nexpect hung\n", AskForEver), "passes");
  EXPECT_EQ(OutcomeStarted("answer input \"5\"\nclick WPaper2\nexpect running\n", AskForEver), "passes");
}

}  // namespace
}  // namespace lumidex::scenario
