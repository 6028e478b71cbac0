#include "reports/report_row.h"

#include "base/text.h"

namespace lumidex {
namespace {

std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// About as long as a line of it.
std::size_t LengthOf(const ReportRow& row) {
  constexpr std::size_t roomForSigns = 64;
  return roomForSigns + row.Directory.size() + row.FileName.size();
}

}  // namespace

std::string ColorTextOf(std::int16_t depth) {
  return depth == 0 ? std::string() : Number(depth) + " bpp";
}

std::string DimensionTextOf(std::int16_t width, std::int16_t height) {
  if (width == 0 || height == 0) return {};
  return Number(width) + " x " + Number(height);
}

std::string SizeTextOf(std::int32_t bytes) {
  return bytes == 0 ? std::string() : NumberInGroups(bytes);
}

std::string TextReportLine(const ReportRow& row) {
  std::string line;
  line.reserve(LengthOf(row));
  line += Number(row.ItemNo);
  for (const std::string* field :
       {&row.Drive, &row.Directory, &row.FileName, &row.ColorText, &row.DimensionText, &row.SizeText}) {
    ((line += ",\"") += *field) += '"';
  }
  return line += "\r\n";
}

std::string HtmlReportHeader() {
  // The heading closes with a second opening tag; readers of old reports look for it.
  return Lines({"<HTML>",
                "<HEAD>",
                "<TITLE>",
                "Lumidex Image File Report",
                "</TITLE>",
                "<base target=\"_blank\">",
                "</HEAD>",
                "<BODY Align=\"Center\"bgcolor=navy>",
                "<DIV ALIGN=Center>",
                "<FONT FACE=ARIAL COLOR=Yellow>",
                "<H1>Lumidex Image File Report<H1>",
                "</FONT>",
                "<P>",
                "<TABLE border=5>",
                "<TR bgcolor=red>",
                "<TH>Item No.</TH><TH colspan=2>File Name</TH>",
                "</TR>",
                "<TR bgcolor=orange>",
                "<TH>Colors Depth</TH><TH>Dimensions</TH><TH>File Size</TH>",
                "</TR>"});
}

std::string HtmlReportBlock(const ReportRow& row, const std::string& shown, const std::string& target) {
  std::string text;
  constexpr std::size_t roomForTags = 256;
  text.reserve(roomForTags + shown.size() + target.size());
  ((text += "<B>\r\n<TR bgcolor=gold>\r\n<TD align=center>") += Number(row.ItemNo)) +=
      "</TD><TD colspan=2><a href=\"";
  ((text += target) += "\">") += shown;
  ((text += "</A></TD>\r\n</TR>\r\n<TR bgcolor=orange align=center>\r\n<TD>") += row.ColorText) +=
      "</TD><TD>";
  ((text += row.DimensionText) += "</TD><TD>") += row.SizeText;
  return text += "</TD>\r\n</TR>\r\n</B>\r\n";
}

std::string LinkTarget(const std::string& path) {
  std::string target = path;
  for (std::size_t place = 0; (place = target.find_first_of("%#?\\", place)) != std::string::npos; ++place) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(target[place]);
    const char encoded[] = {'%', digits[code / 16], digits[code % 16]};
    target.replace(place, 1, encoded, sizeof encoded);
  }
  return target;
}

std::string HtmlReportFooter() {
  return Lines({"</TABLE>", "</DIV>", "</HTML>"});
}

std::string GridRow(const ReportRow& row) {
  std::string cells;
  cells.reserve(LengthOf(row));
  for (const std::string* field :
       {&row.Drive, &row.Directory, &row.FileName, &row.ColorText, &row.DimensionText, &row.SizeText}) {
    (cells += '\t') += *field;
  }
  return cells;
}

}  // namespace lumidex
