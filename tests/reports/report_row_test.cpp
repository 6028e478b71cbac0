#include "reports/report_row.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumidex {
namespace {

ReportRow Sample() {
  return {3, "C:", "\\My Pics\\", "a&b.bmp", ColorTextOf(24), DimensionTextOf(640, 480), SizeTextOf(1234567)};
}

TEST(ReportRow, A_depth_is_told_in_bits_and_0_is_empty) {
  EXPECT_EQ(ColorTextOf(8), "8 bpp");
  EXPECT_EQ(ColorTextOf(24), "24 bpp");
  EXPECT_EQ(ColorTextOf(0), "");
}

TEST(ReportRow, Dimensions_are_empty_when_either_is_0) {
  EXPECT_EQ(DimensionTextOf(640, 480), "640 x 480");
  EXPECT_EQ(DimensionTextOf(0, 480), "");
  EXPECT_EQ(DimensionTextOf(640, 0), "");
}

TEST(ReportRow, A_size_comes_in_groups_and_0_is_empty) {
  EXPECT_EQ(SizeTextOf(999), "999");
  EXPECT_EQ(SizeTextOf(1000), "1,000");
  EXPECT_EQ(SizeTextOf(2147483647), "2,147,483,647");
  EXPECT_EQ(SizeTextOf(0), "");
}

TEST(ReportRow, A_text_line_has_a_bare_number_and_six_quoted_fields) {
  EXPECT_EQ(TextReportLine(Sample()),
            "3,\"C:\",\"\\My Pics\\\",\"a&b.bmp\",\"24 bpp\",\"640 x 480\",\"1,234,567\"\r\n");
}

TEST(ReportRow, Empty_fields_are_two_quotes_and_a_quote_is_written_as_it_is) {
  EXPECT_EQ(TextReportLine({0, "", "/a/", "x\"y.gif", "", "", ""}),
            "0,\"\",\"/a/\",\"x\"y.gif\",\"\",\"\",\"\"\r\n");
}

TEST(ReportRow, A_grid_row_has_seven_cells_of_which_the_first_is_empty) {
  EXPECT_EQ(GridRow(Sample()), "\tC:\t\\My Pics\\\ta&b.bmp\t24 bpp\t640 x 480\t1,234,567");
}

TEST(ReportRow, A_block_is_eight_lines_and_encodes_nothing) {
  EXPECT_EQ(HtmlReportBlock(Sample(), "C:\\My Pics\\A&b.Bmp", "target"),
            "<B>\r\n<TR bgcolor=gold>\r\n"
            "<TD align=center>3</TD><TD colspan=2><a href=\"target\">C:\\My Pics\\A&b.Bmp</A></TD>\r\n"
            "</TR>\r\n<TR bgcolor=orange align=center>\r\n"
            "<TD>24 bpp</TD><TD>640 x 480</TD><TD>1,234,567</TD>\r\n</TR>\r\n</B>\r\n");
}

TEST(ReportRow, The_header_closes_its_heading_with_a_second_opening_tag) {
  const std::string header = HtmlReportHeader();
  EXPECT_TRUE(
      header.starts_with("<HTML>\r\n<HEAD>\r\n<TITLE>\r\nLumidex Image File Report\r\n</TITLE>\r\n"
                         "<base target=\"_blank\">\r\n</HEAD>\r\n"
                         "<BODY Align=\"Center\"bgcolor=navy>\r\n"));
  EXPECT_NE(header.find("<H1>Lumidex Image File Report<H1>\r\n"), std::string::npos);
  EXPECT_EQ(std::count(header.begin(), header.end(), '\n'), 20);
}

TEST(ReportRow, The_footer_closes_no_body) {
  EXPECT_EQ(HtmlReportFooter(), "</TABLE>\r\n</DIV>\r\n</HTML>\r\n");
}

TEST(ReportRow, A_link_keeps_the_path_but_for_signs_that_mean_something_in_an_address) {
  EXPECT_EQ(LinkTarget("/pics/sea view & more.bmp"), "/pics/sea view & more.bmp");
  EXPECT_EQ(LinkTarget("/pics/50% #1?\\.bmp"), "/pics/50%25 %231%3F%5C.bmp");
}

}  // namespace
}  // namespace lumidex
