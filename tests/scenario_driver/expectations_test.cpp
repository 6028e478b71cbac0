// What does not hold fails, and says what was found.

#include "forms/WPaper2.h"
#include "scenario_driver/driver_test.h"

namespace lumidex::scenario {
namespace {

TEST(Expectations, A_value_that_is_another_is_told) {
  EXPECT_EQ(OutcomeStarted("expect mnuFile.Caption = File"),
            "1: expect mnuFile.Caption = File\n    but it is \"&File\"");
  EXPECT_EQ(OutcomeStarted("expect global CurrentIndex not 0"),
            "1: expect global CurrentIndex not 0\n    but it is \"0\"");
}

TEST(Expectations, A_name_that_leads_nowhere_is_told) {
  EXPECT_EQ(OutcomeStarted("expect frmTip.cmdNothing.Caption = x"),
            "1: there is no \"cmdNothing.Caption\" in frmTip.cmdNothing.Caption");
  EXPECT_EQ(OutcomeStarted("expect global Nothing = x"), "1: there is no global Nothing");
  EXPECT_EQ(OutcomeStarted("write global Nothing = 1"), "1: there is no global Nothing");
  EXPECT_EQ(OutcomeStarted("write frmTip.Nothing = 1"), "1: there is no \"Nothing\" in frmTip.Nothing");
  EXPECT_EQ(OutcomeStarted("show frmNothing"), "1: there is no form \"frmNothing\"");
  EXPECT_EQ(OutcomeStarted("load frmNothing"), "1: there is no form \"frmNothing\"");
  EXPECT_EQ(OutcomeStarted("fire cmdUp.Change"), "1: there is no event \"cmdUp.Change\"");
}

TEST(Expectations, A_number_too_wide_for_its_field_is_refused) {
  EXPECT_EQ(OutcomeStarted("write global ViewMode = 40000"), "1: error 6, Overflow");
  EXPECT_EQ(OutcomeStarted("write global ViewMode = much"), "1: error 13, Type mismatch");
}

TEST(Expectations, A_control_that_should_exist_or_not_is_told) {
  EXPECT_EQ(OutcomeStarted("expect control cmdNothing exists"),
            "1: expect control cmdNothing exists\n    but there is none");
  EXPECT_EQ(OutcomeStarted("expect control cmdUp missing"),
            "1: expect control cmdUp missing\n    but it exists");
  EXPECT_EQ(OutcomeStarted("expect control cmdUp.Caption exists"),
            "1: expect control cmdUp.Caption exists\n    but there is none");
}

TEST(Expectations, Files_that_differ_say_where) {
  const std::string world = "file C:\\a text \"one two\"\nfile C:\\b text \"one too\"\n";
  EXPECT_EQ(OutcomeStarted(world + "expect file C:\\a same as C:\\b"),
            "3: expect file C:\\a same as C:\\b\n    but they differ from byte 5 on, of 7 and 7");
  EXPECT_EQ(OutcomeStarted(world + "expect file C:\\a same as C:\\a"), "passes");
  EXPECT_THAT(OutcomeStarted(world + "expect file C:\\a same as C:\\none"), HasSubstr("error 53"));
}

TEST(Expectations, The_lines_of_a_file_are_compared_with_their_ends) {
  const std::string world = "file C:\\a lines:\n  one\n  two\nfile C:\\b text \"one%0Atwo%0D%0A\"\n";
  EXPECT_EQ(OutcomeStarted(world + "expect file C:\\a lines:\n  one\n  two\n"), "passes");
  EXPECT_EQ(OutcomeStarted(world + "expect file C:\\a lines:\n  one\n"),
            "5: the file holds\n    one\n    two");
  EXPECT_THAT(OutcomeStarted(world + "expect file C:\\b lines:\n  one\n  two\n"),
              HasSubstr("the file holds"));
  EXPECT_EQ(OutcomeStarted("file C:\\c text \"one\"\nexpect file C:\\c lines:\n  one\n"),
            "2: the last line does not end in CR LF:\n    one");
}

TEST(Expectations, Pictures_that_differ_say_where) {
  const std::string world =
      "file C:\\a.bmp picture 8x4\nfile C:\\b.bmp picture 8x4x1\nfile C:\\c.bmp picture 9x4\n";
  EXPECT_THAT(OutcomeStarted(world + "expect same picture file C:\\a.bmp file C:\\b.bmp"),
              HasSubstr("they differ at 0,0"));
  EXPECT_THAT(OutcomeStarted(world + "expect same picture file C:\\a.bmp file C:\\c.bmp"),
              HasSubstr("one is 8 x 4, the other 9 x 4"));
  EXPECT_EQ(OutcomeStarted(world + "expect same picture file C:\\a.bmp file C:\\a.bmp"), "passes");
}

TEST(Expectations, A_text_that_a_window_does_not_show_is_told) {
  EXPECT_THAT(OutcomeStarted("expect WPaper2 shows \"Add Two\""), HasSubstr("but it shows\n"));
  EXPECT_THAT(OutcomeStarted("expect frmTip shows \"Next Tip\""), HasSubstr("but it is not on the screen"));
  EXPECT_EQ(OutcomeStarted("expect WPaper2 shows \"Add One\""), "passes");
}

TEST(Expectations, The_entries_of_a_menu_are_compared_in_their_order) {
  EXPECT_THAT(OutcomeStarted("expect menu mnuPicture:\n  View Pre&vious Image\n"),
              HasSubstr("the menu holds\n    View Pre&vious Image\n    View &Next Image\n    -"));
  EXPECT_EQ(OutcomeStarted("expect menu cmdUp:\n  x\n"), "1: cmdUp is no menu");
}

TEST(Expectations, The_lines_of_the_log_are_compared) {
  EXPECT_EQ(OutcomeStarted("clear log\nload frmlocatefiles\nexpect log:\n  Load frmlocatefiles\n"),
            "3: the log goes on with \"SetWindowPos frmlocatefiles, HWND_TOPMOST, 0, 0, 0, 0, 3\"");
  EXPECT_EQ(OutcomeStarted("clear log\nexpect log contains Load"), "2: the log is nothing");
}

}  // namespace
}  // namespace lumidex::scenario
