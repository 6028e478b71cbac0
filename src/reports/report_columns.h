#pragma once
// The columns of the report grid: their headings, and widths that grow with what stands in them.

#include <array>

#include "forms/app.h"
#include "reports/report_row.h"

namespace lumidex {

inline constexpr int reportColumns = 6;

// Headings and first widths, when the report window is loaded.
void SetUpReportGrid(App& app);
// The grid fills the window.
void FitReportGrid(App& app);

// The widest texts of a scan so far, in the columns 1 to 6. Everything is measured in twips and the widths
// are multiplied by the twips of a pixel all the same: they come out generous.
class ReportWidths {
 public:
  // Begins with the widths that the grid has.
  explicit ReportWidths(App& app);
  void Take(App& app, const ReportRow& row);
  void GiveTo(App& app) const;

 private:
  // Most fields are those of the row before, and measuring is slow.
  struct Measured {
    std::string text;
    float width = 0;
    float Of(App& app, std::string wanted);
  };

  std::array<Measured, reportColumns> tested_, stored_;
  std::array<std::int32_t, reportColumns> widest_{};
};

}  // namespace lumidex
