#include "core/default_report.h"
#include "core/list_text.h"
#include "support/test_program.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

class DefaultReport : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.AppPath = "C:\\Lumidex\\";
    platform.files.AddDirectory("C:\\Lumidex");
  }
  // The text of the one message that the event ends in.
  std::string ReportOf(const std::function<void()>& event) {
    try {
      RunEvent(app, event);
      ADD_FAILURE() << "the program goes on";
    } catch (const ProgramEnded& end) {
      EXPECT_EQ(end.exitCode, 1);
    }
    EXPECT_EQ(platform.dialogs.messages.size(), 1U);
    EXPECT_EQ(platform.dialogs.messages.back().icon, MessageIcon::Critical);
    return platform.dialogs.messages.back().text;
  }
  static void RunOutOfMemory() { throw std::bad_alloc(); }
};

TEST_F(DefaultReport, An_event_without_an_error_reports_nothing) {
  bool ran = false;
  RunEvent(app, [&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DefaultReport, Number_and_text_of_the_error_are_told) {
  EXPECT_EQ(ReportOf([] { throw RunTimeError(ErrorNumber::Overflow); }), "Run-time error '6':\n\nOverflow");
}

TEST_F(DefaultReport, The_file_that_the_error_is_about_has_a_line_of_its_own_below_number_and_text) {
  FillDisplayList(1);
  EXPECT_EQ(ReportOf([] { throw RunTimeError(ErrorNumber::PermissionDenied).About("C:\\Pics\\a.bmp"); }),
            "Run-time error '70':\n\nPermission denied\nC:\\Pics\\a.bmp\n\n"
            "The Display List was kept in C:\\Lumidex\\Recovered.LST.");
}

TEST_F(DefaultReport, Memory_that_runs_out_is_error_7_and_the_list_is_kept) {
  FillDisplayList(2);
  EXPECT_EQ(ReportOf(&RunOutOfMemory),
            "Run-time error '7':\n\nOut of memory\n\n"
            "The Display List was kept in C:\\Lumidex\\Recovered.LST.");
  EXPECT_EQ(platform.files.ReadAll("C:\\Lumidex\\Recovered.LST"), ListFileText(app));
}

TEST_F(DefaultReport, The_file_stands_before_the_message_is_shown) {
  FillDisplayList(1);
  ReportOf(&RunOutOfMemory);
  const auto& lines = platform.log.Lines();
  const auto written = std::ranges::find(lines, "WriteAll C:\\Lumidex\\Recovered.LST");
  const auto shown = std::ranges::find_if(lines, [](const auto& line) { return line.starts_with("MsgBox"); });
  ASSERT_NE(written, lines.end());
  ASSERT_NE(shown, lines.end());
  EXPECT_LT(written, shown);
}

TEST_F(DefaultReport, A_recovered_list_is_never_overwritten) {
  FillDisplayList(1);
  platform.files.AddFile("C:\\Lumidex\\Recovered.LST", "first");
  platform.files.AddFile("C:\\Lumidex\\Recovered2.LST", "second");
  EXPECT_NE(ReportOf(&RunOutOfMemory).find("kept in C:\\Lumidex\\Recovered3.LST."), std::string::npos);
  EXPECT_EQ(platform.files.ReadAll("C:\\Lumidex\\Recovered.LST"), "first");
  EXPECT_EQ(platform.files.ReadAll("C:\\Lumidex\\Recovered2.LST"), "second");
  EXPECT_EQ(platform.files.ReadAll("C:\\Lumidex\\Recovered3.LST"), ListFileText(app));
}

TEST_F(DefaultReport, Any_other_exception_is_an_internal_error_and_the_list_is_kept) {
  FillDisplayList(1);
  EXPECT_EQ(ReportOf([] { throw std::runtime_error("no more threads"); }),
            "Run-time error '51':\n\nInternal error: no more threads\n\n"
            "The Display List was kept in C:\\Lumidex\\Recovered.LST.");
}

TEST_F(DefaultReport, An_error_behind_the_message_of_another_shows_no_second_one) {
  app.reporting = true;
  RunEvent(app, [] { throw RunTimeError(ErrorNumber::Overflow); });
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DefaultReport, Where_an_old_file_was_kept_is_told) {
  const auto event = [] {
    throw OldContentKept(RunTimeError(ErrorNumber::DiskFull).About("C:\\Lumidex\\Lumidex.Cfg"),
                         "C:\\Lumidex\\Lumidex.Old.Cfg");
  };
  EXPECT_EQ(ReportOf(event),
            "Run-time error '61':\n\nDisk full\nC:\\Lumidex\\Lumidex.Cfg\n\n"
            "What the file held before was kept in C:\\Lumidex\\Lumidex.Old.Cfg.");
}

}  // namespace
}  // namespace lumidex
