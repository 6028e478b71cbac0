#include "pictures/small_file.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

constexpr std::int64_t mebibyte = std::int64_t{1} << 20;

TEST(SmallFile, A_mebibyte_may_unpack_to_448) {
  EXPECT_NO_THROW(CheckSmallFile(448 * mebibyte, mebibyte));
  EXPECT_THROW(CheckSmallFile(448 * mebibyte + 1, mebibyte), RunTimeError);
  EXPECT_THROW(CheckSmallFile(448 * mebibyte + 1, 0), RunTimeError);
}

TEST(SmallFile, Longer_files_are_not_looked_at) {
  EXPECT_NO_THROW(CheckSmallFile(4096 * mebibyte, mebibyte + 1));
}

}  // namespace
}  // namespace lumidex
