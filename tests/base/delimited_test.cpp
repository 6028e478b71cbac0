#include "base/delimited.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

std::vector<std::string> Items(const std::string& text) {
  DelimitedReader reader(text);
  std::vector<std::string> items;
  while (!reader.AtEnd()) items.push_back(reader.Next());
  return items;
}

TEST(Delimited, An_item_without_quotes_ends_at_a_comma_or_a_line_end) {
  EXPECT_THAT(Items("a,b\r\nc\nd\re"), ElementsAre("a", "b", "c", "d", "e"));
}

TEST(Delimited, Blanks_around_an_item_are_skipped_and_those_inside_kept) {
  EXPECT_THAT(Items("  a b  ,  \" c \"  \r\nd"), ElementsAre("a b", " c ", "d"));
}

TEST(Delimited, A_quoted_item_holds_commas_and_line_ends) {
  EXPECT_THAT(Items("\"a,b\"\r\n\"c\nd\"\r\n"), ElementsAre("a,b", "c\nd"));
}

TEST(Delimited, A_quote_that_nothing_ends_behind_belongs_to_the_item) {
  EXPECT_THAT(Items("\"say \"x\" now\"\r\nb"), ElementsAre("say \"x\" now", "b"));
}

TEST(Delimited, An_empty_line_is_an_empty_item) {
  EXPECT_THAT(Items("a\r\n\r\nb\r\n\"\"\r\n"), ElementsAre("a", "", "b", ""));
}

TEST(Delimited, A_quote_that_is_never_closed_runs_to_the_end) {
  EXPECT_THAT(Items("\"a\r\nb"), ElementsAre("a\r\nb"));
}

TEST(Delimited, Reading_past_the_end_is_an_error) {
  DelimitedReader reader("a\r\n");
  EXPECT_EQ(reader.Next(), "a");
  ASSERT_TRUE(reader.AtEnd());
  try {
    reader.Next();
    FAIL() << "nothing was raised";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InputPastEnd);
  }
}

TEST(Delimited, Any_text_is_read_back_as_it_was_written) {
  for (const std::string text : {"", "plain", "  blanks  ", "a,b", "a\"b", "\"", "\"\"", "a\",b", "a\"\r\nb",
                                 "ends\"", "line\nend", "bytes \xFF\xC3 end", "a\" , b"}) {
    EXPECT_THAT(Items(DelimitedItem(text) + "\r\nnext\r\n"), ElementsAre(text, "next")) << text;
  }
}

}  // namespace
}  // namespace lumidex
