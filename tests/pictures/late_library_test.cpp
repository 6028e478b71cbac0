#include "pictures/late_library.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

#include "number_raised.h"

namespace lumidex {
namespace {

LateLibrary mathematics("libm.so.6"), standard("libc.so.6"), missing("liblumidex-has-none.so.1");

TEST(LateLibrary, A_function_of_it_is_called_as_if_it_were_linked) {
  const LateFunction<double(double)> squareRoot(mathematics, "sqrt");
  EXPECT_TRUE(mathematics.IsThere());
  EXPECT_EQ(squareRoot(49), 7);
  EXPECT_EQ(squareRoot(81), 9);
}

TEST(LateLibrary, A_function_with_any_number_of_arguments_too) {
  const LateFunction<int(char*, std::size_t, const char*, ...)> print(standard, "snprintf");
  std::array<char, 32> text{};
  EXPECT_EQ(print(text.data(), text.size(), "%d %.1f %s", 7, 1.5, "x"), 7);
  EXPECT_STREQ(text.data(), "7 1.5 x");
}

TEST(LateLibrary, Where_it_is_missing_the_picture_is_invalid) {
  const LateFunction<int(const char*)> function(missing, "atoi");
  EXPECT_FALSE(missing.IsThere());
  EXPECT_EQ(NumberRaisedBy([] { missing.Need(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { function("1"); }), 481);
}

TEST(LateLibrary, Where_it_has_no_such_function_the_picture_is_invalid) {
  const LateFunction<int()> function(mathematics, "lumidex_has_none");
  EXPECT_EQ(NumberRaisedBy([&] { function(); }), 481);
}

}  // namespace
}  // namespace lumidex
