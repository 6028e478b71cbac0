#include "ports/path_list.h"

#include <gtest/gtest.h>

namespace lumidex {
namespace {

TEST(PathList, Holds_paths_in_their_order_empty_ones_too) {
  PathList paths{"/a", "", "/long/enough/for/memory/of/its/own"};
  paths.Add("/b");
  ASSERT_EQ(paths.Count(), 4U);
  EXPECT_EQ(paths[0], "/a");
  EXPECT_EQ(paths[1], "");
  EXPECT_EQ(paths[2], "/long/enough/for/memory/of/its/own");
  EXPECT_EQ(paths[3], "/b");
  const PathList copy = paths;
  paths = {};
  EXPECT_EQ(paths.Count(), 0U);
  EXPECT_EQ(copy[3], "/b");
}

}  // namespace
}  // namespace lumidex
