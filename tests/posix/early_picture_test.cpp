#include "platform/posix/early_picture.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "pictures/bmp_writer.h"
#include "platform/posix/decoding_threads.h"
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

  Picture Find() { return decoding.Find(path, PictureStamp(disk, path), {}); }

  TemporaryFolder folder;
  PosixFileSystem disk;
  DecodingThreads decoding{disk};
  const std::string path = folder / "a b.bmp";
};

TEST_F(EarlyPictureTest, The_path_stands_between_the_first_and_the_last_character) {
  WritePicture({30, 20});
  const EarlyPicture early(decoding, "\"" + path + "\"");
  decoding.WaitUntilDone();
  EXPECT_EQ(decoding.StateOf(path), DecodingState::Decoded);
  EXPECT_EQ(Find().GetSize(), (Size{30, 20}));
}

TEST_F(EarlyPictureTest, It_has_pixels_for_a_screen_of_usual_size) {
  WritePicture({3000, 1000});
  const EarlyPicture early(decoding, "\"" + path + "\"");
  decoding.WaitUntilDone();
  const Picture found = Find();
  EXPECT_NE(found.HeldBytes(), 0U);
}

TEST_F(EarlyPictureTest, Where_its_size_is_known_it_is_made_for_that) {
  WritePicture({3000, 1000});
  const EarlyPicture early(decoding, "\"" + path + "\"", [](Size full) {
    return Size{full.width / 3, full.height / 2};
  });
  decoding.WaitUntilDone();
  const Picture found = Find();
  EXPECT_EQ(found.HeldBytes(), 1000U * 500 * 4);
  EXPECT_FALSE(found.ReadyToShow({1000, 500}).IsEmpty());
}

TEST_F(EarlyPictureTest, Who_opens_it_takes_it) {
  WritePicture({30, 20});
  const EarlyPicture early(decoding, "\"" + path + "\"");
  decoding.WaitUntilDone();
  EXPECT_FALSE(Find().IsEmpty());
  EXPECT_TRUE(Find().IsEmpty());
  EXPECT_EQ(decoding.StateOf(path), std::nullopt);
}

TEST_F(EarlyPictureTest, A_file_that_changed_since_is_told_apart) {
  WritePicture({30, 20});
  const EarlyPicture early(decoding, "\"" + path + "\"");
  decoding.WaitUntilDone();
  WritePicture({40, 20});
  EXPECT_TRUE(Find().IsEmpty());
}

TEST_F(EarlyPictureTest, What_is_no_picture_file_gives_none) {
  Put(folder / "text.bmp", "no picture");
  ASSERT_EQ(mkfifo((folder / "pipe.bmp").c_str(), 0600), 0);
  for (const std::string& name :
       {folder / "text.bmp", folder / "pipe.bmp", folder / "none.bmp", folder.Path()}) {
    const EarlyPicture early(decoding, "\"" + name + "\"");
    decoding.WaitUntilDone();
    EXPECT_EQ(decoding.StateOf(name).value_or(DecodingState::Failed), DecodingState::Failed) << name;
  }
  for (const char* line : {"", "x", "\"\""}) {
    const EarlyPicture early(decoding, line);
    EXPECT_FALSE(decoding.HasWork()) << line;
  }
}

}  // namespace
}  // namespace lumidex
