#include "platform/posix/early_picture.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "pictures/bmp_writer.h"
#include "platform/posix/posix_file_system.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

class EarlyPictureTest : public testing::Test {
 protected:
  void WritePicture(Size size) {
    disk.Write(path, [size](ByteSink& sink) { WriteBmp(Pixels::Make(size, PixelFormat::Rgb, 0), sink); });
    // A stamp says nothing as long as the file is so new that it might change within the same tick.
    std::filesystem::last_write_time(path,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  }

  TemporaryFolder folder;
  PosixFileSystem disk;
  const std::string path = folder / "a b.bmp";
};

TEST_F(EarlyPictureTest, The_path_stands_between_the_first_and_the_last_character) {
  WritePicture({30, 20});
  const EarlyPicture early(disk, "\"" + path + "\"");
  EXPECT_EQ(early.Opened().path, path);
  EXPECT_EQ(early.Opened().picture.GetSize(), (Size{30, 20}));
  EXPECT_TRUE(early.Opened().IsFor(path, PictureStamp(disk, path), {}));
}

TEST_F(EarlyPictureTest, A_file_that_changed_since_is_told_apart) {
  WritePicture({30, 20});
  const EarlyPicture early(disk, "\"" + path + "\"");
  WritePicture({40, 20});
  EXPECT_FALSE(early.Opened().IsFor(path, PictureStamp(disk, path), {}));
}

TEST_F(EarlyPictureTest, What_is_no_picture_file_gives_none) {
  Put(folder / "text.bmp", "no picture");
  ASSERT_EQ(mkfifo((folder / "pipe.bmp").c_str(), 0600), 0);
  for (const std::string& name :
       {folder / "text.bmp", folder / "pipe.bmp", folder / "none.bmp", folder.Path()}) {
    const EarlyPicture early(disk, "\"" + name + "\"");
    EXPECT_TRUE(early.Opened().picture.IsEmpty()) << name;
  }
  for (const char* line : {"", "x", "\"\""}) {
    EXPECT_TRUE(EarlyPicture(disk, line).Opened().picture.IsEmpty()) << line;
  }
}

}  // namespace
}  // namespace lumidex
