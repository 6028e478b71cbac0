#include "reports/shown_counts.h"

#include <array>
#include <charconv>
#include <string>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/frmstats.h"
#include "reports/report_row.h"

namespace lumidex {
namespace {

// With the blank that stands before numbers without a sign.
void WriteSpaced(TextBox& box, std::int32_t value) {
  std::array<char, 16> text{' '};
  const auto end = std::to_chars(text.data() + (value < 0 ? 0 : 1), text.data() + text.size(), value);
  box.Text = std::string(text.data(), end.ptr);
}

}  // namespace

template <class Counter, class Write>
void ShownCounts::WriteNew(Counter& shown, Counter counted, Write write) {
  if (!writesAll_ && shown == counted) return;
  shown = counted;
  write(counted);
}

void ShownCounts::Show(const ScanCounts& counts, std::int32_t current) {
  frmstatsWindow& window = app_.frmstats;
  writesAll_ = turn_ == 0 || turn_ != window.showings;
  for (int type = 1; type <= FileTypeCount; ++type) {
    const auto place = static_cast<std::size_t>(type);
    WriteNew(shown_.types[place], counts.types[place],
             [&](std::int32_t count) { window.txtFileType(type).Text = Number(count); });
  }
  WriteSpaced(window.txtCurrentFile, current);
  const auto writeTo = [](TextBox& box) { return [&box](std::int32_t count) { WriteSpaced(box, count); }; };
  WriteNew(shownFiles_, app_.WPaper2.LstRight.ListCount(), writeTo(window.txtTotalFiles));
  TextBox* const depths[] = {&window.txtColors2, &window.txtColors16, &window.txtColors256,
                             &window.txtColors64K, &window.txtColors167M};
  for (std::size_t i = 0; i < counts.depths.size(); ++i)
    WriteNew(shown_.depths[i], counts.depths[i], writeTo(*depths[i]));
  WriteNew(shown_.otherDepths, counts.otherDepths, writeTo(window.txtColorsUnknown));
  TextBox* const sizes[] = {&window.txtfilesize100, &window.txtfilesize200, &window.txtfilesize300,
                            &window.txtfilesize400, &window.txtfilesize500};
  for (std::size_t i = 0; i < counts.sizes.size(); ++i)
    WriteNew(shown_.sizes[i], counts.sizes[i], writeTo(*sizes[i]));
  WriteNew(shown_.emptyFiles, counts.emptyFiles, writeTo(window.txtFileSizeUnavailable));
  WriteNew(shown_.totalBytes, counts.totalBytes,
           [&](std::int32_t bytes) { window.txtTotalSize.Text = SizeTextOf(bytes); });
  ShowSums();
  turn_ = ++window.showings;
}

void ShownCounts::ShowSums() {
  frmstatsWindow& window = app_.frmstats;
  IgnoreError([&] { WriteSpaced(window.txtColorsTotal, shown_.DepthTotal()); });
  IgnoreError([&] {
    double total = Val(window.txtFileSizeUnavailable.Text.Get());
    for (const std::int16_t size : shown_.sizes) total += size;
    WriteSpaced(window.txtfilesizetotal, ToInt16(total));
  });
  IgnoreError([&] { WriteSpaced(window.txtFileTypeTotal, shown_.TypeTotal()); });
}

}  // namespace lumidex
