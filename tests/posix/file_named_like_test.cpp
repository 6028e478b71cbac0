#include "platform/posix/file_named_like.h"

#include <gtest/gtest.h>

#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

TEST(FileNamedLike, The_very_name_comes_first) {
  const TemporaryFolder folder;
  Put(folder / "Report.Txt", "");
  Put(folder / "Report.TXT", "");
  EXPECT_EQ(FileNamedLike(folder / "Report.TXT"), folder / "Report.TXT");
}

TEST(FileNamedLike, A_name_in_another_case_finds_its_file) {
  const TemporaryFolder folder;
  Put(folder / "Report.Txt", "");
  Put(folder / "Report.Html", "");
  EXPECT_EQ(FileNamedLike(folder / "Report.TXT"), folder / "Report.Txt");
}

TEST(FileNamedLike, Of_several_the_first_by_its_bytes_is_taken) {
  const TemporaryFolder folder;
  Put(folder / "report.txt", "");
  Put(folder / "Report.Txt", "");
  EXPECT_EQ(FileNamedLike(folder / "REPORT.TXT"), folder / "Report.Txt");
}

TEST(FileNamedLike, Without_such_a_file_or_directory_there_is_nothing) {
  const TemporaryFolder folder;
  EXPECT_EQ(FileNamedLike(folder / "Report.TXT"), "");
  EXPECT_EQ(FileNamedLike(folder / "gone/Report.TXT"), "");
  EXPECT_EQ(FileNamedLike(""), "");
}

}  // namespace
}  // namespace lumidex
