#include "platform/posix/kept_picture_area.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <optional>
#include <string>

#include "platform/posix/ini_file.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

Environment CacheIn(const std::string& folder) {
  return
      [folder](const char* name) { return std::string(name) == "XDG_CACHE_HOME" ? folder : std::string(); };
}

class KeptPictureAreaTest : public testing::Test {
 protected:
  // What is read where the file says this.
  std::optional<PictureArea> ReadOf(const std::string& text) {
    IniFile(file).SetValue("MainWindow", "PictureArea", text);
    return area.Read();
  }

  TemporaryFolder folder;
  const std::string file = folder / "Lumidex/window.ini";
  const KeptPictureArea area{CacheIn(folder.Path())};
};

TEST_F(KeptPictureAreaTest, There_is_none_at_first) {
  EXPECT_EQ(area.Read(), std::nullopt);
}

TEST_F(KeptPictureAreaTest, The_next_process_has_it) {
  for (const PictureArea kept : {PictureArea{{1230, 922}}, PictureArea{{1, 32767}, true}}) {
    area.Keep(kept);
    EXPECT_EQ(KeptPictureArea(CacheIn(folder.Path())).Read(), kept);
  }
}

TEST_F(KeptPictureAreaTest, What_is_no_area_counts_as_none) {
  for (const char* text : {"", "x", "12", "12x", "x12", "0x12", "12x0", "-3x4", "12x32768", "99999999999x1",
                           "12 x 9", "12x9 ", "12x9 stretched more", "12x9stretched"}) {
    EXPECT_EQ(ReadOf(text), std::nullopt) << text;
  }
  EXPECT_EQ(ReadOf("12x9"), (PictureArea{{12, 9}}));
}

TEST_F(KeptPictureAreaTest, The_same_area_is_not_written_again) {
  area.Keep({{300, 200}});
  struct stat before {
  }, after{};
  ASSERT_EQ(stat(file.c_str(), &before), 0);
  area.Keep({{300, 200}});
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(KeptPictureAreaTest, Where_it_can_not_be_written_nothing_happens) {
  const KeptPictureArea nowhere{CacheIn("/proc/none")};
  nowhere.Keep({{300, 200}});
  EXPECT_EQ(nowhere.Read(), std::nullopt);
}

}  // namespace
}  // namespace lumidex
