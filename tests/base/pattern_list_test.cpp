#include "base/pattern_list.h"

#include <gtest/gtest.h>

namespace lumidex {
namespace {

TEST(PatternList, Patterns_match_without_regard_to_case) {
  const PatternList list("*.JPG;*.jpe; ?x*.b?p");
  EXPECT_TRUE(list.Matches("a.jpg"));
  EXPECT_TRUE(list.Matches("A.JPE"));
  EXPECT_TRUE(list.Matches("axle.bmp"));
  EXPECT_FALSE(list.Matches("a.jpeg"));
  EXPECT_FALSE(list.Matches("jpg"));
  EXPECT_TRUE(list.Matches("\xFF.jpg"));
  EXPECT_FALSE(PatternList("").Matches("a.jpg"));
  EXPECT_TRUE(PatternList("*").Matches("anything"));
}

TEST(PatternList, Endings_match_at_any_length_of_name_and_ending) {
  EXPECT_TRUE(PatternList("*.gif").Matches(".GIF"));
  EXPECT_FALSE(PatternList("*.gif").Matches("gif"));
  EXPECT_FALSE(PatternList("*.gif").Matches(""));
  EXPECT_TRUE(PatternList("*-picture.jpeg").Matches("A long one-PICTURE.Jpeg"));
  EXPECT_FALSE(PatternList("*-picture.jpeg").Matches("picture.jpeg"));
  EXPECT_TRUE(PatternList("*.1234567").Matches("eight bytes.1234567"));
  EXPECT_FALSE(PatternList("*.1234567").Matches("eight bytes,1234567"));
}

TEST(PatternList, Only_capital_letters_are_the_same_as_small_ones) {
  EXPECT_TRUE(PatternList("*.az").Matches("x.AZ"));
  EXPECT_FALSE(PatternList("*.`{").Matches("x.@["));
  EXPECT_FALSE(PatternList("*.@[").Matches("x.`{"));
  // The sign of the kelvin is a capital k.
  EXPECT_TRUE(PatternList("*.pk").Matches("x.p\xE2\x84\xAA"));
}

TEST(PatternList, An_ending_beside_another_pattern_leaves_that_one_its_say) {
  const PatternList list("*.jpg;b*");
  EXPECT_TRUE(list.Matches("Butterfly"));
  EXPECT_FALSE(list.Matches("Moth"));
}

}  // namespace
}  // namespace lumidex
