#include "pictures/picture_data.h"

#include <gmock/gmock.h>

#include <numeric>
#include <optional>

#include "pictures/support/counting_source.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<std::uint8_t> Counting(std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{});
  return bytes;
}

std::vector<std::uint8_t> Read(const ByteSource& source, std::uint64_t offset, std::size_t count) {
  std::vector<std::uint8_t> bytes(count, 0xEE);
  bytes.resize(source.ReadAt(offset, bytes));
  return bytes;
}

TEST(SourceInMemory, Reads_what_there_is_and_nothing_past_its_end) {
  const std::vector<std::uint8_t> bytes = Counting(10);
  const MemorySource own(bytes);
  const LastingSource lasting(bytes);
  for (const ByteSource* source :
       {static_cast<const ByteSource*>(&own), static_cast<const ByteSource*>(&lasting)}) {
    EXPECT_EQ(source->Size(), 10U);
    EXPECT_THAT(Read(*source, 2, 3), ElementsAre(2, 3, 4));
    EXPECT_THAT(Read(*source, 8, 5), ElementsAre(8, 9));
    EXPECT_THAT(Read(*source, 10, 1), ElementsAre());
    EXPECT_THAT(Read(*source, std::uint64_t{1} << 40, 1), ElementsAre());
  }
}

TEST(PictureData, Takes_the_head_of_bytes_in_memory_from_where_they_lie) {
  const std::vector<std::uint8_t> bytes = Counting(10'000);
  const PictureData data(std::make_shared<LastingSource>(bytes), ".png");
  EXPECT_EQ(data.Head().data(), bytes.data());
  EXPECT_EQ(data.Head().size(), PictureData::HeadSize);
  const PictureData small(std::make_shared<LastingSource>(Bytes(bytes).first(7)), ".png");
  EXPECT_THAT(small.Head(), ElementsAreArray(Counting(7)));
  EXPECT_THAT(small.All(), ElementsAreArray(Counting(7)));
}

TEST(PictureData, Has_its_head_for_as_long_as_a_copy_of_it_lives) {
  std::optional<PictureData> first(std::in_place, std::make_shared<MemorySource>(Counting(9)), "");
  const PictureData copy = *first;
  first.reset();
  EXPECT_THAT(copy.Head(), ElementsAreArray(Counting(9)));
  EXPECT_THAT(copy.All(), ElementsAreArray(Counting(9)));
}

TEST(PictureData, Reads_no_byte_of_a_file_twice) {
  const auto file = std::make_shared<CountingSource>(Counting(10'000));
  const PictureData data(file, ".png");
  EXPECT_THAT(data.Head(), ElementsAreArray(Counting(PictureData::HeadSize)));
  EXPECT_THAT(data.Stretch(0, 20), ElementsAreArray(Counting(20)));
  EXPECT_EQ(file->bytesRead, PictureData::HeadSize);
  EXPECT_THAT(data.All(), ElementsAreArray(Counting(10'000)));
  EXPECT_EQ(file->bytesRead, 10'000U);
}

TEST(PictureData, Ends_where_it_is_being_read_while_it_is_stopped_also_in_memory) {
  const PictureData data(std::make_shared<MemorySource>(Counting(10'000)), "");
  *data.StopMark() = true;
  EXPECT_THAT(data.All(), ElementsAre());
  *data.StopMark() = false;
  EXPECT_EQ(data.All().size(), 10'000U);
}

}  // namespace
}  // namespace lumidex
