#include "auxiliary/tips.h"
#include "forms/WPaper2.h"
#include "forms/frmTip.h"
#include "support/test_program.h"

#include <set>

namespace lumidex {
namespace {

class Tips : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.AppPath = "C:\\Lumidex\\";
  }
  void WriteTips(std::string content) {
    platform.files.AddFile("C:\\Lumidex\\TIPOFDAY.TXT", std::move(content));
  }
  std::string Shown() { return app.frmTip.lblTipText.Caption; }
};

TEST_F(Tips, A_missing_file_is_told_in_place_of_a_tip) {
  app.frmTip.Show();
  EXPECT_EQ(
      Shown(),
      "That the TIPOFDAY.TXT file was not found? \r\n\r\nCreate a text file named TIPOFDAY.TXT using NotePad "
      "with 1 tip per line. Then place it in the same directory as the application. ");
  const std::string before = Shown();
  app.frmTip.cmdNextTip.UserClick();
  EXPECT_EQ(Shown(), before);
}

TEST_F(Tips, With_one_tip_every_pick_shows_it) {
  WriteTips("Look twice.\r\n");
  app.frmTip.Show();
  EXPECT_EQ(Shown(), "Look twice.");
  app.frmTip.cmdNextTip.UserClick();
  EXPECT_EQ(Shown(), "Look twice.");
}

TEST_F(Tips, Every_tip_comes_up_in_the_end) {
  WriteTips("one\r\n\r\nthree");
  app.frmTip.Show();
  EXPECT_EQ(app.frmTip.Tips, (std::vector<std::string>{"one", "", "three"}));
  std::set<std::string> seen;
  for (int i = 0; i < 200; ++i) {
    DoNextTip(app);
    seen.insert(Shown());
  }
  EXPECT_EQ(seen.size(), 3U);
}

TEST_F(Tips, A_file_with_no_lines_changes_nothing) {
  WriteTips("");
  app.frmTip.Show();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(app.frmTip.CurrentTip, 1);
}

TEST_F(Tips, With_the_flag_off_the_window_does_not_appear) {
  platform.settings.SaveSetting("Options", "Show Tips at Startup", "0");
  app.frmTip.Show(Modality::Modal);
  EXPECT_FALSE(app.frmTip.Visible());
  EXPECT_FALSE(app.frmTip.IsLoaded());
}

TEST_F(Tips, Asking_by_hand_switches_the_flag_on_again) {
  platform.settings.SaveSetting("Options", "Show Tips at Startup", "0");
  app.WPaper2.mnuHelpTipOfTheDay.UserClick();
  EXPECT_TRUE(app.frmTip.Visible());
  EXPECT_EQ(app.frmTip.chkLoadTipsAtStartup.Value, 1);
  EXPECT_EQ(platform.settings.GetSetting("Options", "Show Tips at Startup", "?"), "1");
}

TEST_F(Tips, Unticking_takes_effect_at_the_click) {
  app.frmTip.Show();
  app.frmTip.chkLoadTipsAtStartup.UserClick();
  EXPECT_EQ(platform.settings.GetSetting("Options", "Show Tips at Startup", "?"), "0");
  app.frmTip.UserClose();
  EXPECT_EQ(platform.settings.GetSetting("Options", "Show Tips at Startup", "?"), "0");
}

}  // namespace
}  // namespace lumidex
