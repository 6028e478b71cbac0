#include "forms/file_type_table.h"

#include <gtest/gtest.h>

namespace lumidex {
namespace {

TEST(FileTypeTable, An_ending_of_either_case_names_its_type) {
  EXPECT_EQ(FileTypeOf(".ART"), 1);
  EXPECT_EQ(FileTypeOf(".jpg"), 13);
  EXPECT_EQ(FileTypeOf(".wPg"), FileTypeCount);
}

TEST(FileTypeTable, What_is_no_ending_of_a_type_names_none) {
  for (const char* ending : {"", ".", "BMP", ".BM", ".BMPX", ".JPE", "XBMP", ".B-P"}) {
    EXPECT_EQ(FileTypeOf(ending), 0) << ending;
  }
}

}  // namespace
}  // namespace lumidex
