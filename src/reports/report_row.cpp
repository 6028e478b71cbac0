#include "reports/report_row.h"

#include "base/text.h"

namespace lumidex {
namespace {

std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
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
  std::string line = Number(row.ItemNo);
  for (const std::string* field :
       {&row.Drive, &row.Directory, &row.FileName, &row.ColorText, &row.DimensionText, &row.SizeText}) {
    line += ",\"" + *field + "\"";
  }
  return line + "\r\n";
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
  return Lines(
      {"<B>", "<TR bgcolor=gold>",
       "<TD align=center>" + Number(row.ItemNo) + "</TD><TD colspan=2><a href=\"" + target + "\">" + shown +
           "</A></TD>",
       "</TR>", "<TR bgcolor=orange align=center>",
       "<TD>" + row.ColorText + "</TD><TD>" + row.DimensionText + "</TD><TD>" + row.SizeText + "</TD>",
       "</TR>", "</B>"});
}

std::string LinkTarget(const std::string& path) {
  std::string target;
  for (const char character : path) {
    switch (character) {
      case '%':
        target += "%25";
        break;
      case '#':
        target += "%23";
        break;
      case '?':
        target += "%3F";
        break;
      case '\\':
        target += "%5C";
        break;
      default:
        target += character;
    }
  }
  return target;
}

std::string HtmlReportFooter() {
  return Lines({"</TABLE>", "</DIV>", "</HTML>"});
}

std::string GridRow(const ReportRow& row) {
  return "\t" + row.Drive + "\t" + row.Directory + "\t" + row.FileName + "\t" + row.ColorText + "\t" +
         row.DimensionText + "\t" + row.SizeText;
}

}  // namespace lumidex
