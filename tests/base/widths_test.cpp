#include "base/widths.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

TEST(Widths, A_half_goes_to_the_even_neighbour) {
  EXPECT_EQ(ToInt16(0.5), 0);
  EXPECT_EQ(ToInt16(1.5), 2);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(-0.5), 0);
  EXPECT_EQ(ToInt16(-1.5), -2);
  EXPECT_EQ(ToInt32(-2.5), -2);
}

TEST(Widths, Anything_else_goes_to_the_nearest) {
  EXPECT_EQ(ToInt16(2.49999), 2);
  EXPECT_EQ(ToInt16(2.50001), 3);
  EXPECT_EQ(ToInt32(-2.6), -3);
}

TEST(Widths, What_does_not_fit_raises_overflow) {
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_THROW(ToInt16(32767.5), RunTimeError);
  EXPECT_THROW(ToInt16(40000), RunTimeError);
  EXPECT_THROW(ToInt32(3.0e9), RunTimeError);
  EXPECT_THROW(ToInt32(std::int64_t{1} << 40), RunTimeError);
  EXPECT_THROW(ToInt16(std::numeric_limits<double>::quiet_NaN()), RunTimeError);
  EXPECT_THROW(ToInt16(std::numeric_limits<double>::infinity()), RunTimeError);
  try {
    ToInt16(-40000);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
  }
}

}  // namespace
}  // namespace lumidex
