// The events of the report window.

#include "forms/frmReport.h"

#include "forms/WPaper2.h"
#include "reports/report_columns.h"
#include "windows/windows.h"

namespace lumidex {

void WirefrmReport(App& app) {
  frmReportWindow& window = app.frmReport;
  const auto opens = [&app, &window](MenuItem& item, const char* file) {
    item.OnClick = [&app, &window, file] {
      constexpr int maximized = 3;
      app.platform.shell.ShellExecuteA(window.hwnd(), "Open", app.AppPath + file, "0", "0", maximized);
    };
  };
  window.OnLoad = [&app, &window] {
    window.Icon = app.WPaper2.Icon.Get();
    SetUpReportGrid(app);
  };
  window.OnResize = [&app] { FitReportGrid(app); };
  window.mnuClose.OnClick = [&window] { window.Hide(); };
  opens(window.mnuGenerateHTMLReport, "Report.Html");
  opens(window.mnuGenerateTextFile, "Report.TXT");
}

}  // namespace lumidex
