// Every small file of every format, cut at every length: no decoder may fail after a good header, and what a
// longer file shows is never less than what a shorter one shows.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

constexpr std::size_t MostBytes = 6000;

std::vector<std::filesystem::path> SmallFiles() {
  std::vector<std::filesystem::path> files;
  const std::filesystem::path corpus = "fuzz/corpus";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus)) {
    if (entry.is_regular_file() && entry.file_size() <= MostBytes) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::vector<std::uint8_t> Read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool IsBlank(std::uint32_t word) {
  return word == blankPixel || word >> 24 == 0;
}

// Rows from the top that hold anything but blank pixels; rows from the bottom for formats that begin there.
int RowsShown(const Pixels& pixels) {
  int shown = 0;
  for (int y = 0; y < pixels.Height(); ++y) shown += std::ranges::all_of(pixels.Row(y), IsBlank) ? 0 : 1;
  return shown;
}

TEST(Truncation, A_file_cut_anywhere_is_refused_or_shown_in_its_full_size) {
  const auto files = SmallFiles();
  ASSERT_GT(files.size(), 30U);
  for (const auto& path : files) {
    const auto whole = Read(path);
    const std::string extension = path.extension().string();
    for (std::size_t length = 1; length < whole.size(); length += 1 + whole.size() / 700) {
      const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      std::unique_ptr<Decoder> decoder;
      try {
        decoder = OpenBytes(cut, extension);
      } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture) << path << " cut to " << length;
        continue;
      }
      // Drawings play the same records at any size; at a small one the work on areas does not eat up the
      // time.
      const Size wanted = decoder->Facts().scalable ? Size{48, 32} : decoder->Facts().size;
      EXPECT_EQ(decoder->Decode({wanted}).GetSize(), wanted) << path << " cut to " << length;
    }
  }
}

// Of formats that keep their rows in order and never take back what they have shown.
TEST(Truncation, Rows_shown_never_shrink_as_the_file_grows) {
  int checked = 0;
  for (const auto& path : SmallFiles()) {
    const std::string folder = path.parent_path().filename().string();
    if (folder != "bmp" && folder != "jpeg" && folder != "png" && folder != "pnm" && folder != "gif")
      continue;
    const auto whole = Read(path);
    int shown = 0;
    for (std::size_t length = 1; length <= whole.size(); ++length) {
      const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      try {
        const int now = RowsShown(DecodeBytes(cut, path.extension().string()));
        EXPECT_GE(now, shown) << path << " cut to " << length;
        shown = now;
      } catch (const RunTimeError&) {
        EXPECT_EQ(shown, 0) << path << " cut to " << length;
      }
    }
    ++checked;
  }
  EXPECT_GT(checked, 15);
}

}  // namespace
}  // namespace lumidex
