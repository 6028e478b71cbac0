#include "core/default_report.h"
#include "core/list_text.h"
#include "support/test_program.h"

#include <algorithm>
#include <new>

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

}  // namespace
}  // namespace lumidex
