#include "core/long_date.h"

#include <gtest/gtest.h>

#include <locale>

namespace lumidex {
namespace {

// The locale of the process for the time of a test, with short dates of its own order.
class Dates : public std::time_put<char> {
 public:
  explicit Dates(std::string shortDate) : shortDate_(std::move(shortDate)) {}

 protected:
  iter_type do_put(iter_type out, std::ios_base& stream, char fill, const std::tm* day, char format,
                   char modifier) const override {
    if (format == 'x') return std::copy(shortDate_.begin(), shortDate_.end(), out);
    return std::time_put<char>::do_put(out, stream, fill, day, format, modifier);
  }

 private:
  std::string shortDate_;
};

struct LongDateTest : testing::Test {
  ~LongDateTest() override { std::locale::global(before); }
  static void Order(const char* shortDate) {
    std::locale::global(std::locale(std::locale::classic(), new Dates(shortDate)));
  }
  const std::locale before = std::locale();
  const DateTime moment{2002, 3, 5, 14, 7, 0};
};

TEST_F(LongDateTest, A_day_is_written_with_its_name_and_that_of_its_month) {
  std::locale::global(std::locale::classic());
  EXPECT_EQ(LongDate(moment), "Tuesday, March 5, 2002");
}

TEST_F(LongDateTest, Day_month_and_year_stand_in_the_order_of_the_locale) {
  Order("22.11.1999");
  EXPECT_EQ(LongDate(moment), "Tuesday, 5 March 2002");
  Order("1999-11-22");
  EXPECT_EQ(LongDate(moment), "2002 March 5, Tuesday");
  Order("11/22/99");
  EXPECT_EQ(LongDate(moment), "Tuesday, March 5, 2002");
}

}  // namespace
}  // namespace lumidex
