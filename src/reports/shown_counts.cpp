#include "reports/shown_counts.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/frmstats.h"
#include "reports/report_row.h"

namespace lumidex {
namespace {

// With the blank that stands before numbers without a sign.
std::string Spaced(std::int64_t value) {
  return (value < 0 ? "" : " ") + Number(value);
}

}  // namespace

void ShowCounts(App& app, const ScanCounts& counts, std::int32_t current) {
  frmstatsWindow& window = app.frmstats;
  for (int type = 1; type <= FileTypeCount; ++type) {
    window.txtFileType(type).Text = Number(counts.types[static_cast<std::size_t>(type)]);
  }
  window.txtCurrentFile.Text = Spaced(current);
  window.txtTotalFiles.Text = Spaced(app.WPaper2.LstRight.ListCount());
  TextBox* const depths[] = {&window.txtColors2, &window.txtColors16, &window.txtColors256,
                             &window.txtColors64K, &window.txtColors167M};
  for (std::size_t i = 0; i < counts.depths.size(); ++i) depths[i]->Text = Spaced(counts.depths[i]);
  window.txtColorsUnknown.Text = Spaced(counts.otherDepths);
  TextBox* const sizes[] = {&window.txtfilesize100, &window.txtfilesize200, &window.txtfilesize300,
                            &window.txtfilesize400, &window.txtfilesize500};
  for (std::size_t i = 0; i < counts.sizes.size(); ++i) sizes[i]->Text = Spaced(counts.sizes[i]);
  window.txtFileSizeUnavailable.Text = Spaced(counts.emptyFiles);
  window.txtTotalSize.Text = SizeTextOf(counts.totalBytes);
  IgnoreError([&] { window.txtColorsTotal.Text = Spaced(counts.DepthTotal()); });
  IgnoreError([&] {
    double total = Val(window.txtFileSizeUnavailable.Text.Get());
    for (const std::int16_t size : counts.sizes) total += size;
    window.txtfilesizetotal.Text = Spaced(ToInt16(total));
  });
  IgnoreError([&] { window.txtFileTypeTotal.Text = Spaced(counts.TypeTotal()); });
}

}  // namespace lumidex
