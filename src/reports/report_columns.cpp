#include "reports/report_columns.h"

#include "base/run_time_error.h"
#include "base/widths.h"
#include "forms/frmReport.h"
#include "forms/frmstats.h"

namespace lumidex {
namespace {

struct Column {
  const char* heading;
  const char* measured;
};

constexpr std::array<Column, reportColumns> columns = {{{"Drive:", "Drive:"},
                                                        {"File Path", "File Path:"},
                                                        {"File Name", "File Name:"},
                                                        {"Colors", "Colors:"},
                                                        {"Dim.", "Dim.:"},
                                                        {"File Size", "File Size:"}}};

}  // namespace

void SetUpReportGrid(App& app) {
  frmReportWindow& form = app.frmReport;
  constexpr std::int32_t narrow = 250;
  Grid& grid = form.MSFlexGrid1;
  FitReportGrid(app);
  grid.SetRow(0);
  grid.SetColWidth(0, narrow);
  for (int column = 1; column <= reportColumns; ++column) {
    const Column& design = columns[static_cast<std::size_t>(column - 1)];
    grid.SetCol(column);
    grid.SetText(design.heading);
    grid.SetColWidth(column, ToInt32(double{twipsPerPixel} * double{form.TextWidth(design.measured)}));
  }
}

void FitReportGrid(App& app) {
  frmReportWindow& form = app.frmReport;
  form.MSFlexGrid1.Height = form.ScaleHeight();
  form.MSFlexGrid1.Width = form.ScaleWidth();
}

ReportWidths::ReportWidths(App& app) {
  app.frmReport.Load();
  for (int column = 1; column <= reportColumns; ++column) {
    IgnoreError([&] {
      widest_[static_cast<std::size_t>(column - 1)] =
          ToInt32(static_cast<double>(app.frmReport.MSFlexGrid1.ColWidth(column)) / double{twipsPerPixel});
    });
  }
}

float ReportWidths::Measured::Of(App& app, std::string wanted) {
  if (wanted != text || text.empty()) {
    width = app.frmstats.TextWidth(wanted);
    text = wanted;
  }
  return width;
}

void ReportWidths::Take(App& app, const ReportRow& row) {
  const auto take = [&](std::size_t column, const std::string& tested, const std::string& stored) {
    IgnoreError([&] {
      if (double{tested_[column].Of(app, tested)} <= widest_[column]) return;
      widest_[column] = ToInt32(double{stored_[column].Of(app, stored)});
    });
  };
  take(0, row.Drive, row.Drive);
  take(1, row.Directory, row.Directory);
  take(2, row.FileName, row.FileName);
  take(3, row.ColorText, row.ColorText);
  // The one that tests its neighbour's text.
  take(4, row.ColorText, row.DimensionText);
  take(5, row.SizeText, row.SizeText);
}

void ReportWidths::GiveTo(App& app) const {
  constexpr double margin = 90;
  for (int column = 1; column <= reportColumns; ++column) {
    IgnoreError([&] {
      const double widest = widest_[static_cast<std::size_t>(column - 1)];
      app.frmReport.MSFlexGrid1.SetColWidth(column, ToInt32(double{twipsPerPixel} * widest + margin));
    });
  }
}

}  // namespace lumidex
