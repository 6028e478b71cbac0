#include "reports/scan.h"

#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "forms/frmReport.h"
#include "forms/frmstats.h"
#include "imaging/files_ahead.h"
#include "imaging/proper_names.h"
#include "imaging/working_image.h"
#include "reports/report_columns.h"
#include "reports/scan_counts.h"
#include "reports/shown_counts.h"

namespace lumidex {
namespace {

// The numbers under which the two reports are open.
constexpr int textReport = 1;
constexpr int htmlReport = 2;

// What ImageBitsPerPixel holds behind a depth that was counted.
constexpr float countedDepth = 99;

// Every step ignores its own error and the next one runs: what a failed step would have set keeps its value
// of the file before.
class Scan {
 public:
  explicit Scan(App& app) : app_(app), opening_(app.frmstats.closings), shown_(app), widths_(app) {}

  void Run() {
    app_.frmstats.Pointer = MousePointer::Hourglass;
    BeginReports();
    const bool loads = app_.frmPreferences.chkCountFileColorDepth.Value == 1;
    const FilesAhead ahead(app_.checkjpg.Picture1, loads ? EntriesOf(app_.WPaper2.LstRight) : PathList(),
                           DecodingExtent::Header);
    const std::int32_t last = app_.WPaper2.LstRight.ListCount() - 1;
    while (index_ <= last) {
      OpenBoth();
      if (IsCancelled()) break;
      HandleFile();
      IgnoreError([&] { ShowProgress(); });
      app_.platform.events.Yield();
      ++index_;
    }
    IgnoreError([&] { Files().OpenForAppend(htmlReport, htmlPath_); });
    Print(htmlReport, HtmlReportFooter());
    Files().Close(htmlReport);
    Finish();
  }

 private:
  FileSystem& Files() { return app_.platform.files; }
  bool WindowIsGone() const { return app_.frmstats.closings != opening_; }
  bool IsCancelled() const { return !app_.frmstats.ScanRunning || WindowIsGone(); }
  void Print(int number, const std::string& text) {
    IgnoreError([&] { Files().Print(number, text); });
  }

  void BeginReports() {
    IgnoreError([&] { Files().OpenForOutput(textReport, textPath_); });
    Files().Close(textReport);
    IgnoreError([&] { Files().OpenForOutput(htmlReport, htmlPath_); });
    IgnoreError([&] { Files().OpenForAppend(textReport, textPath_); });
    Print(htmlReport, HtmlReportHeader());
    Files().Close(htmlReport);
  }

  void OpenBoth() {
    IgnoreError([&] { Files().OpenForAppend(textReport, textPath_); });
    IgnoreError([&] { Files().OpenForAppend(htmlReport, htmlPath_); });
  }

  void HandleFile() {
    const frmPreferencesWindow& options = app_.frmPreferences;
    app_.platform.events.Yield();
    path_ = app_.WPaper2.LstRight.List(index_);
    if (!WindowIsGone()) app_.frmstats.lblCurrentFileName.Caption = path_;
    app_.platform.events.Yield();
    if (options.chkCountFileColorDepth.Value == 1) CountDepth();
    if (options.chkCountFileSize.Value == 1) CountSize();
    if (options.chkCountFileTypes.Value == 1) counts_.CountType(path_);
    if (!WindowIsGone()) shown_.Show(counts_, index_ + 1);
    WriteRow();
    Files().Close(textReport);
    Files().Close(htmlReport);
  }

  void CountDepth() {
    LoadScratchImage(app_, path_);
    GetImageInfo(app_, path_, app_.ImageWidth, app_.ImageHeight, app_.ImageBitsPerPixel);
    IgnoreError([&] { depth_ = ToInt16(double{app_.ImageBitsPerPixel}); });
    if (counts_.CountDepth(app_.ImageBitsPerPixel)) app_.ImageBitsPerPixel = countedDepth;
  }

  void CountSize() {
    IgnoreError([&] {
      const auto facts = path_.empty() ? std::nullopt : Files().Look(path_);
      if (facts && FileExists(app_, path_, facts)) size_ = ToInt32(static_cast<std::int64_t>(facts->size));
    });
    counts_.CountSize(size_);
  }

  void WriteRow() {
    row_.ItemNo = index_;
    SplitPath(app_, path_, row_.Drive, directory_, row_.FileName);
    // Without a separator directory and name stay those of the row before.
    if (!directory_.empty()) row_.Directory = directory_;
    row_.ColorText = ColorTextOf(depth_);
    row_.DimensionText = DimensionTextOf(app_.ImageWidth, app_.ImageHeight);
    row_.SizeText = SizeTextOf(size_);
    Print(textReport, TextReportLine(row_));
    const std::string shown = ProperCaseName(app_, row_.Drive + row_.Directory + row_.FileName);
    // Where names that differ in case are different files, the shown one would open nothing.
    Print(htmlReport, HtmlReportBlock(row_, shown, Files().Separator() == '\\' ? shown : LinkTarget(path_)));
    if (WindowIsGone()) return;
    IgnoreError([&] { app_.frmReport.MSFlexGrid1.AddItem(GridRow(row_)); });
    widths_.Take(app_, row_);
  }

  void ShowProgress() {
    if (WindowIsGone()) return;
    const int steps = app_.WPaper2.LstRight.ListCount() - 1;
    if (steps == 0) throw RunTimeError(ErrorNumber::DivisionByZero);
    app_.frmstats.ProgressBar1.Value =
        static_cast<int>(std::floor(static_cast<double>(index_) / steps * 100.0));
  }

  // A window that was closed meanwhile is left as its next opening shall find it.
  void Finish() {
    if (WindowIsGone()) return;
    frmstatsWindow& window = app_.frmstats;
    if (index_ > 0) {
      shown_.Show(counts_, index_);
      app_.platform.events.Yield();
      if (WindowIsGone()) return;
    }
    widths_.GiveTo(app_);
    window.cmdReport.Enabled = true;
    window.lblCurrentFileName.Caption = "";
    window.Pointer = MousePointer::Default;
  }

  App& app_;
  const int opening_;
  const std::string textPath_ = app_.AppPath + "Report.Txt", htmlPath_ = app_.AppPath + "Report.Html";
  std::int32_t index_ = 0;
  std::string path_;
  std::int32_t size_ = 0;
  std::int16_t depth_ = 0;
  ScanCounts counts_;
  ShownCounts shown_;
  ReportRow row_;
  std::string directory_;
  ReportWidths widths_;
};

}  // namespace

void LoadScratchImage(App& app, std::string path) {
  Gvbox& control = app.checkjpg.Picture1;
  try {
    control.SetFileName(path);
  } catch (const RunTimeError&) {
    control.SetFileName("");
  }
}

void ScanFiles(App& app) {
  Scan(app).Run();
}

}  // namespace lumidex
