#include "platform/posix/file_address.h"

#include <gmock/gmock.h>

namespace lumidex {
namespace {

TEST(FileAddress, Lists_of_addresses_give_the_paths_of_files_here) {
  EXPECT_THAT(PathsOfAddresses("file:///a%20b.jpg\r\nfile://localhost/c.jpg\r\n"),
              testing::ElementsAre("/a b.jpg", "/c.jpg"));
  EXPECT_THAT(PathsOfAddresses("file:/a.jpg\nhttp://example.org/b.jpg\n# a remark\nfile://elsewhere/c.jpg"),
              testing::ElementsAre("/a.jpg"));
  EXPECT_THAT(PathsOfAddresses("file:///caf%E9.bmp"), testing::ElementsAre("/caf\xE9.bmp"));
  EXPECT_THAT(PathsOfAddresses(""), testing::IsEmpty());
}

}  // namespace
}  // namespace lumidex
