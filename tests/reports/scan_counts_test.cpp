#include "reports/scan_counts.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

TEST(ScanCounts, A_depth_of_1_counts_as_unknown_and_not_under_2) {
  ScanCounts counts;
  EXPECT_FALSE(counts.CountDepth(1));
  EXPECT_TRUE(counts.CountDepth(2));
  EXPECT_FALSE(counts.CountDepth(0));
  EXPECT_FALSE(counts.CountDepth(32));
  EXPECT_EQ(counts.depths[0], 1);
  EXPECT_EQ(counts.otherDepths, 3);
  EXPECT_EQ(counts.DepthTotal(), 4);
}

TEST(ScanCounts, The_buckets_are_inclusive_at_the_top) {
  ScanCounts counts;
  for (const std::int32_t size : {1, 100000, 100001, 200000, 400000, 400001, 2147483647}) {
    counts.CountSize(size);
  }
  EXPECT_EQ(counts.sizes, (std::array<std::int16_t, 5>{2, 2, 0, 1, 2}));
  EXPECT_EQ(counts.emptyFiles, 0);
}

TEST(ScanCounts, A_total_beyond_32_bits_stays_where_it_was) {
  ScanCounts counts;
  counts.CountSize(2147483647);
  counts.CountSize(1);
  EXPECT_EQ(counts.totalBytes, 2147483647);
  EXPECT_EQ(counts.sizes[0], 1);
}

TEST(ScanCounts, A_counter_stops_at_the_end_of_its_width) {
  ScanCounts counts;
  counts.emptyFiles = 32767;
  counts.CountSize(0);
  EXPECT_EQ(counts.emptyFiles, 32767);
}

TEST(ScanCounts, Both_jpeg_extensions_share_a_type_and_case_does_not_matter) {
  ScanCounts counts;
  counts.CountType("C:\\a.jpg");
  counts.CountType("  C:\\a.JPE ");
  counts.CountType("    ");
  counts.CountType("C:\\a.jpeg");
  EXPECT_EQ(counts.types[13], 2);
  EXPECT_EQ(counts.TypeTotal(), 2);
}

TEST(ScanCounts, Every_row_of_the_table_is_counted_under_its_own_index) {
  ScanCounts counts;
  for (const FileTypeRow& row : FileTypeTable) counts.CountType("x." + std::string(row.resource));
  for (int type = 1; type <= FileTypeCount; ++type)
    EXPECT_EQ(counts.types[static_cast<std::size_t>(type)], 1);
}

TEST(ScanCounts, A_sum_beyond_16_bits_raises_overflow) {
  ScanCounts counts;
  counts.types[1] = counts.types[2] = 32767;
  EXPECT_THROW(static_cast<void>(counts.TypeTotal()), RunTimeError);
}

}  // namespace
}  // namespace lumidex
