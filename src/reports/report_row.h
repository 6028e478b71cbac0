#pragma once
// One row of the file report, and the row as each of the two report files and the grid hold it.

#include <cstdint>
#include <string>

namespace lumidex {

struct ReportRow {
  std::int32_t ItemNo = 0;  // from 0
  std::string Drive;
  std::string Directory;  // begins and ends in a separator
  std::string FileName;
  std::string ColorText;
  std::string DimensionText;
  std::string SizeText;
};

// "8 bpp"; empty for 0.
std::string ColorTextOf(std::int16_t depth);
// "640 x 480"; empty when either is 0.
std::string DimensionTextOf(std::int16_t width, std::int16_t height);
// In groups of three digits; empty for 0.
std::string SizeTextOf(std::int32_t bytes);

// A line of the text report, with its end. A double quote is written as it is.
std::string TextReportLine(const ReportRow& row);

// The HTML report from its beginning to the headings of the table.
std::string HtmlReportHeader();
// The lines of one file: `shown` is its path as people read it, `target` as the link opens it. Neither is
// encoded.
std::string HtmlReportBlock(const ReportRow& row, const std::string& shown, const std::string& target);
std::string HtmlReportFooter();
// A path with slashes as the target of a link: as it is but for the signs that mean something else in an
// address, so that a browser opens that very file.
std::string LinkTarget(const std::string& path);

// The cells of the grid, parted by tabs; the first is empty.
std::string GridRow(const ReportRow& row);

}  // namespace lumidex
