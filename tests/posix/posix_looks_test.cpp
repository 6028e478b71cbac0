#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/posix/posix_file_system.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

class PosixLooks : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFileSystem looking{std::chrono::hours(1)};

  std::uint64_t SizeOf(const std::string& name) {
    const auto facts = looking.Look(folder / name);
    return facts ? facts->size : 99;
  }
};

TEST_F(PosixLooks, A_second_look_within_the_unnoticed_time_is_the_first) {
  Put(folder / "a", "1");
  Put(folder / "b", "22");
  EXPECT_EQ(SizeOf("a"), 1U);
  Put(folder / "a", "333");
  EXPECT_EQ(SizeOf("a"), 1U);
  EXPECT_EQ(SizeOf("b"), 2U);
  EXPECT_EQ(SizeOf("a"), 1U);
  EXPECT_EQ(PosixFileSystem().Look(folder / "a")->size, 3U);
}

TEST_F(PosixLooks, A_file_that_comes_is_seen_at_once) {
  EXPECT_EQ(SizeOf("a"), 99U);
  Put(folder / "a", "1");
  EXPECT_EQ(SizeOf("a"), 1U);
}

TEST_F(PosixLooks, What_the_program_itself_changes_is_seen_at_once) {
  Put(folder / "a", "1");
  EXPECT_EQ(SizeOf("a"), 1U);
  looking.WriteOver(folder / "a", "22");
  EXPECT_EQ(SizeOf("a"), 2U);
  looking.Remove(folder / "a");
  EXPECT_EQ(SizeOf("a"), 99U);
  looking.OpenForOutput(1, folder / "a");
  looking.Close(1);
  EXPECT_EQ(SizeOf("a"), 0U);
  looking.OpenForAppend(1, folder / "a");
  looking.Print(1, "4444");
  EXPECT_EQ(SizeOf("a"), 4U);
}

TEST_F(PosixLooks, A_look_of_one_thread_serves_the_others) {
  Put(folder / "a", "1");
  std::thread([this] { EXPECT_EQ(SizeOf("a"), 1U); }).join();
  Put(folder / "a", "333");
  EXPECT_EQ(SizeOf("a"), 1U);
}

TEST_F(PosixLooks, A_file_that_is_appended_to_is_looked_at_itself_and_the_others_are_not) {
  Put(folder / "a", "1");
  Put(folder / "other", "22");
  EXPECT_EQ(SizeOf("a"), 1U);
  for (int row = 1; row <= 3; ++row) {
    looking.OpenForAppend(1, folder / "a");
    EXPECT_EQ(SizeOf("a"), static_cast<unsigned>(row));
    looking.Print(1, "+");
    EXPECT_EQ(SizeOf("a"), static_cast<unsigned>(row + 1));
    looking.Close(1);
    EXPECT_EQ(SizeOf("other"), 2U);
    Put(folder / "other", "333");
  }
}

TEST_F(PosixLooks, Of_very_many_files_are_true) {
  for (int i = 0; i < 3000; ++i) {
    const std::string name = std::to_string(i);
    Put(folder / name, std::string(static_cast<std::size_t>(i % 7), 'x'));
    EXPECT_EQ(SizeOf(name), static_cast<unsigned>(i % 7));
    EXPECT_EQ(SizeOf(std::to_string(i / 2)), static_cast<unsigned>(i / 2 % 7));
  }
}

}  // namespace
}  // namespace lumidex
