// Files that somebody writes anew, in place, between their opening and their decoding: the header that was
// believed belongs to another file then. What is shown is worth nothing, but it must be something.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/run_time_error.h"
#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

std::vector<std::uint8_t> Read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Keeps the length it had when it was opened, as a file on a disk does, and reads what is there now.
class RewrittenSource final : public ByteSource {
 public:
  explicit RewrittenSource(std::vector<std::uint8_t> bytes) : size_(bytes.size()), now_(std::move(bytes)) {}
  void Rewrite(std::vector<std::uint8_t> bytes) { now_ = MemorySource(std::move(bytes)); }
  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    return now_.ReadAt(offset, into);
  }

 private:
  std::uint64_t size_;
  MemorySource now_;
};

std::vector<std::filesystem::path> SmallFiles() {
  constexpr std::size_t mostBytes = 20000;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator("fuzz/corpus")) {
    const std::string folder = entry.path().parent_path().filename().string();
    if (folder.ends_with("_file") || folder == "cut_palette") continue;  // texts and palettes
    if (entry.is_regular_file() && entry.file_size() <= mostBytes) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

TEST(RewrittenFile, Decoding_gives_the_size_that_was_told_whatever_the_file_holds_by_then) {
  const auto paths = SmallFiles();
  std::vector<std::vector<std::uint8_t>> contents;
  std::ranges::transform(paths, std::back_inserter(contents), Read);
  int checked = 0;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    std::vector<std::uint8_t> reversed = contents[i];
    std::ranges::reverse(reversed);
    for (const auto& later :
         {contents[(i + 1) % paths.size()], contents[(i + 7) % paths.size()], reversed, {}}) {
      const auto source = std::make_shared<RewrittenSource>(contents[i]);
      Picture picture;
      IgnoreError([&] { picture = Picture::Open(PictureData(source, paths[i].extension().string())); });
      if (picture.IsEmpty()) continue;
      source->Rewrite(later);
      const Size size = picture.GetSize(), reduced = picture.PixelsFor({9, 9}).GetSize();
      EXPECT_TRUE(reduced.width >= std::min(size.width, 9)) << paths[i] << ' ' << reduced.width;
      EXPECT_EQ(picture.FullPixels().GetSize(), size) << paths[i];
      ++checked;
    }
  }
  EXPECT_GT(checked, 500);
}

}  // namespace
}  // namespace lumidex
