#include "base/line_reader.h"

#include <gtest/gtest.h>

#include "number_raised.h"

namespace lumidex {
namespace {

TEST(LineReader, Lines_end_in_any_of_the_three_ways) {
  LineReader lines("one\r\ntwo\nthree\rfour");
  EXPECT_EQ(lines.Next(), "one");
  EXPECT_EQ(lines.Next(), "two");
  EXPECT_EQ(lines.Next(), "three");
  EXPECT_FALSE(lines.AtEnd());
  EXPECT_EQ(lines.Next(), "four");
  EXPECT_TRUE(lines.AtEnd());
}

TEST(LineReader, Empty_lines_count_and_a_last_end_begins_no_line) {
  LineReader lines("\r\n\n last \r\n");
  EXPECT_EQ(lines.Next(), "");
  EXPECT_EQ(lines.Next(), "");
  EXPECT_EQ(lines.Next(), " last ");
  EXPECT_TRUE(lines.AtEnd());
}

TEST(LineReader, Reading_on_at_the_end_raises_input_past_end) {
  LineReader lines("one");
  lines.Next();
  EXPECT_EQ(NumberRaisedBy([&] { lines.Next(); }), 62);
  EXPECT_EQ(NumberRaisedBy([] { LineReader("").Next(); }), 62);
}

}  // namespace
}  // namespace lumidex
