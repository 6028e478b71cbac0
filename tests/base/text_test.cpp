#include "base/text.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

TEST(Text, Lengths_and_cuts_count_characters) {
  EXPECT_EQ(Len("a\xC3\xA4\xE2\x82\xAC"), 3);
  EXPECT_EQ(Left("\xC3\xA4\xC3\xB6x", 2), "\xC3\xA4\xC3\xB6");
  EXPECT_EQ(Right("x\xC3\xA4\xC3\xB6", 2), "\xC3\xA4\xC3\xB6");
  EXPECT_EQ(Right("\xC3\xA4.bmp", 4), ".bmp");
  EXPECT_EQ(Right("\xC3\xA4.bmp", 5), "\xC3\xA4.bmp");
  EXPECT_EQ(Right("a.bmp", 9), "a.bmp");
  EXPECT_EQ(Right("a\xC3\xA4", 0), "");
  EXPECT_EQ(Mid("a\xC3\xA4z", 3), "z");
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Mid("abc", 9), "");
  EXPECT_EQ(InStr("\xC3\xA4xy", "x"), 2);
  EXPECT_EQ(InStr("abc", "z"), 0);
}

TEST(Text, Each_invalid_byte_is_one_character_and_survives) {
  const std::string name = "a\xFF\xFE.jpg";
  EXPECT_EQ(Len(name), 7);
  EXPECT_EQ(UCase(name), "A\xFF\xFE.JPG");
  EXPECT_EQ(LCase(UCase(name)), name);
  EXPECT_EQ(Left(name, 2), "a\xFF");
}

TEST(Text, Negative_counts_raise_invalid_call) {
  EXPECT_THROW(Left("a", -1), RunTimeError);
  EXPECT_THROW(Right("a", -1), RunTimeError);
  EXPECT_THROW(Mid("a", 0), RunTimeError);
  EXPECT_THROW(Mid("a", 1, -1), RunTimeError);
}

TEST(Text, Case_mapping_is_the_simple_unicode_one) {
  EXPECT_EQ(UCase("stra\xC3\x9F"
                  "e \xC3\xA9"),
            "STRA\xC3\x9F"
            "E \xC3\x89");
  EXPECT_EQ(LCase("\xC3\x84"), "\xC3\xA4");
}

TEST(Text, Val_reads_leading_digits) {
  EXPECT_EQ(Val("12 files"), 12);
  EXPECT_EQ(Val(" -3.5x"), -3.5);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("x1"), 0);
  EXPECT_EQ(Val("12"), 12);
  EXPECT_EQ(Val("-12"), -12);
  EXPECT_EQ(Val("12e1"), 120);
  EXPECT_EQ(Val("12."), 12);
  EXPECT_EQ(Val("12345678901"), 12345678901.0);
}

TEST(Text, Numbers_are_written_without_blanks_or_leading_zero) {
  EXPECT_EQ(Number(12), "12");
  EXPECT_EQ(Number(0.25), ".25");
  EXPECT_EQ(Number(-0.5), "-.5");
  EXPECT_EQ(Number(100.0F), "100");
  EXPECT_EQ(Number(33.3333333F), "33.33333");
  EXPECT_EQ(Number(1.0), "1");
  EXPECT_EQ(Number(-2.0F), "-2");
  EXPECT_EQ(Number(0.0F), "0");
  EXPECT_EQ(Number(999999.0F), "999999");
  EXPECT_EQ(Number(1234567.0F), "1234567");
  EXPECT_EQ(Number(1e7F), "1E+07");
  EXPECT_EQ(NumberInGroups(1234567), "1,234,567");
  EXPECT_EQ(NumberInGroups(-1234), "-1,234");
  EXPECT_EQ(NumberInGroups(999), "999");
  EXPECT_EQ(NumberInGroups(0), "0");
  EXPECT_EQ(DigitsInGroups(1234), "1,234");
  EXPECT_EQ(DigitsInGroups(0), "");
}

TEST(Text, Order_ignores_case_and_is_total) {
  EXPECT_LT(CompareText("a.jpg", "B.jpg"), 0);
  EXPECT_GT(CompareText("b.jpg", "A.jpg"), 0);
  EXPECT_NE(CompareText("A.jpg", "a.jpg"), 0);
  EXPECT_EQ(CompareText("same", "same"), 0);
  EXPECT_LT(CompareText("\xC3\xA4"
                        "a",
                        "\xC3\x84"
                        "b"),
            0);
  EXPECT_LT(CompareText("abc", "abcd"), 0);
}

}  // namespace
}  // namespace lumidex
