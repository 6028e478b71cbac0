// The HTML report as a browser reads it: rows, shown names, and links that open the pictures. Left out where
// there is no such browser.

#include <gmock/gmock.h>

#include <cstring>

#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "forms/frmstats.h"
#include "platform/headless/headless_platform.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/run_program.h"
#include "posix/temporary_folder.h"
#include "reports/scan.h"
#include "support/test_program.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

// What stands between two marks, each time.
std::vector<std::string> Between(const std::string& text, const std::string& begin, const std::string& end) {
  std::vector<std::string> found;
  for (auto at = text.find(begin); at != std::string::npos; at = text.find(begin, at + 1)) {
    const auto start = at + begin.size();
    found.push_back(text.substr(start, text.find(end, start) - start));
  }
  return found;
}

// A browser writes these signs so.
std::string Unescaped(std::string text) {
  for (const auto& [written, sign] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}}) {
    for (auto at = text.find(written); at != std::string::npos; at = text.find(written, at + 1)) {
      text.replace(at, std::strlen(written), sign);
    }
  }
  return text;
}

class ReportInBrowser : public testing::Test {
 protected:
  void SetUp() override {
    if (!RunProgram({"chromium", "--version"})) GTEST_SKIP() << "there is no browser";
    WireWindows(app_);
    app_.WPaper2.OnLoad = nullptr;
    app_.WPaper2.Show();
    app_.AppPath = folder_.Path() + "/";
    for (CheckBox* count : {&app_.frmPreferences.chkCountFileTypes, &app_.frmPreferences.chkCountFileSize,
                            &app_.frmPreferences.chkCountFileColorDepth}) {
      count->Value = 1;
    }
  }
  void List(const std::string& name, Size size) {
    const std::string path = folder_ / name;
    Put(path, BitmapFile(size.width, size.height));
    app_.WPaper2.LstRight.AddItem(path);
  }
  void Scan() {
    app_.frmstats.Show();
    app_.frmstats.ScanRunning = true;
    ScanFiles(app_);
  }
  // The document as the browser has it after reading the address.
  std::string Read(const std::string& address) const {
    const auto answer = RunProgram({"chromium", "--headless", "--no-sandbox", "--disable-gpu",
                                    "--user-data-dir=" + (folder_ / "browser"), "--dump-dom", address},
                                   60000);
    return answer ? answer->output : std::string();
  }

  TemporaryFolder folder_;
  HeadlessPlatform headless_{'/'};
  PosixFileSystem files_;
  Platform ports_{files_,           headless_.events,  headless_.dialogs,   headless_.windows,
                  headless_.events, headless_.process, headless_.clipboard, headless_.desktop,
                  headless_.tray,   headless_.popup,   headless_.shell,     headless_.settings,
                  headless_.loader, headless_.folders, headless_.browser,   headless_.decoding};
  App app_{ports_};
};

TEST_F(ReportInBrowser, Every_file_has_its_row_and_a_link_that_opens_it) {
  List("sea view.bmp", {64, 48});
  List("a&b <50%> #1?.bmp", {20, 10});
  Scan();
  const std::string page = Read("file://" + (folder_ / "Report.Html"));
  const auto links = Between(page, "<a href=\"", "\"");
  ASSERT_EQ(links.size(), 2U) << page;
  EXPECT_THAT(page, HasSubstr("<title>"));
  EXPECT_THAT(page, HasSubstr("<td>24 bpp</td><td>64 x 48</td><td>9,270</td>"));
  EXPECT_THAT(page, HasSubstr("<td>24 bpp</td><td>20 x 10</td><td>654</td>"));
  EXPECT_THAT(page, HasSubstr("Sea View.Bmp</a>"));
  EXPECT_THAT(page, HasSubstr("A&amp;b &lt;50%&gt; #1?.Bmp</a>"));
  EXPECT_THAT(Read("file://" + Unescaped(links[0])), ContainsRegex("<img.*sea%20view.bmp"));
  EXPECT_THAT(Read("file://" + Unescaped(links[1])), ContainsRegex("<img.*%231%3F.bmp"));
}

}  // namespace
}  // namespace lumidex
