#include <gtest/gtest.h>

#include "gallery/encoders/byte_writer.h"
#include "pictures/exif.h"

namespace lumidex {
namespace {

// A block of EXIF data with one entry of each kind that is ever changed, in one of the two byte orders.
class Block {
 public:
  enum Place : std::size_t {
    Orientation = 8 + 2 + 8,
    Width = Orientation + 12,
    Camera = 8 + 2 + 12 * 3,
    Next = Camera + 12,
    CameraStart = Next + 4,
    ColourSpace = CameraStart + 2 + 8,
    PixelWidth = ColourSpace + 12,
    PixelHeight = PixelWidth + 12,
    CameraEnd = CameraStart + 2 + 12 * 4 + 4,
    Index = CameraEnd + 2 + 8,
    ThumbnailStart = CameraEnd + 2 + 12 + 4,
    Size = ThumbnailStart + 2 + 12 + 4 + 20
  };

  explicit Block(bool big) : big_(big) {
    writer_.Text(big ? "MM" : "II");
    U16(42).U32(8);
    U16(4);
    Entry(0x0112, 3, 6).Entry(0x0100, 4, 4000).Entry(0x010F, 2, 0x41424344).Entry(0x8769, 4, CameraStart);
    U32(ThumbnailStart);
    U16(4);
    Entry(0xA001, 3, 0xFFFF).Entry(0xA002, 4, 4000).Entry(0xA003, 3, 3000).Entry(0xA005, 4, CameraEnd);
    U32(0);
    U16(1);
    U16(1).U16(2).U32(4);
    writer_.Text("R03").U8(0);
    U32(0);
    U16(1);
    Entry(0x0201, 4, Size - 20);
    U32(0);
    writer_.Fill(20, 7);
    bytes = writer_.Take();
  }

  std::uint32_t Number(std::size_t at, std::size_t width) const {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < width; ++i) number = number << 8 | bytes.at(at + (big_ ? i : width - 1 - i));
    return number;
  }

  std::vector<std::uint8_t> bytes;

 private:
  Block& U16(std::uint32_t number) {
    big_ ? writer_.U16Be(number) : writer_.U16Le(number);
    return *this;
  }
  Block& U32(std::uint32_t number) {
    big_ ? writer_.U32Be(number) : writer_.U32Le(number);
    return *this;
  }
  Block& Entry(std::uint32_t tag, std::uint32_t type, std::uint32_t value) {
    U16(tag).U16(type).U32(1);
    constexpr std::uint32_t shortType = 3;
    return type == shortType ? U16(value).U16(0) : U32(value);
  }

  bool big_;
  ByteWriter writer_;
};

class ExifChangesTest : public testing::TestWithParam<bool> {
 protected:
  Block block{GetParam()};
};

TEST_P(ExifChangesTest, The_picture_is_said_to_stand_upright_at_its_size) {
  ASSERT_EQ(block.bytes.size(), Block::Size);
  ASSERT_EQ(ReadExifOrientation(block.bytes).orientation, Orientation::QuarterRight);
  ChangeExif(block.bytes, {.size = Size{3000, 4000}});
  EXPECT_EQ(ReadExifOrientation(block.bytes).orientation, Orientation::Upright);
  EXPECT_EQ(block.Number(Block::Orientation, 2), 1U);
  EXPECT_EQ(block.Number(Block::Width, 4), 3000U);
  EXPECT_EQ(block.Number(Block::PixelWidth, 4), 3000U);
  EXPECT_EQ(block.Number(Block::PixelHeight, 2), 4000U);
  EXPECT_EQ(block.Number(Block::Next, 4), Block::ThumbnailStart);
  EXPECT_EQ(block.Number(Block::ColourSpace, 2), 0xFFFFU);
}

TEST_P(ExifChangesTest, Nothing_else_changes) {
  const std::vector<std::uint8_t> before = block.bytes;
  ChangeExif(block.bytes, {});
  EXPECT_EQ(block.bytes, before);
  ChangeExif(block.bytes, {.size = Size{4000, 3000}});
  std::size_t different = 0;
  for (std::size_t i = 0; i < before.size(); ++i) different += before[i] != block.bytes[i];
  EXPECT_EQ(different, 1U);  // the orientation
}

TEST_P(ExifChangesTest, The_small_picture_is_no_longer_told_of) {
  ChangeExif(block.bytes, {.dropsThumbnail = true});
  EXPECT_EQ(block.Number(Block::Next, 4), 0U);
  EXPECT_EQ(block.bytes.size(), Block::Size);
}

TEST_P(ExifChangesTest, Colours_are_said_to_be_srgb) {
  ChangeExif(block.bytes, {.coloursAreSrgb = true});
  EXPECT_EQ(block.Number(Block::ColourSpace, 2), 1U);
  EXPECT_EQ(std::string(block.bytes.begin() + Block::Index, block.bytes.begin() + Block::Index + 4),
            std::string("R98\0", 4));
}

TEST_P(ExifChangesTest, Cut_anywhere_it_stays_within_its_bytes) {
  for (std::size_t size = 0; size < block.bytes.size(); ++size) {
    std::vector<std::uint8_t> cut(block.bytes.begin(),
                                  block.bytes.begin() + static_cast<std::ptrdiff_t>(size));
    ChangeExif(cut, {.size = Size{1, 2}, .dropsThumbnail = true, .coloursAreSrgb = true});
    ASSERT_EQ(cut.size(), size);
  }
}

TEST_P(ExifChangesTest, Offsets_beyond_the_end_are_not_followed) {
  for (const std::size_t at : {std::size_t{4}, std::size_t{Block::Camera + 8}}) {
    for (const std::uint8_t byte : {std::uint8_t{0xFF}, std::uint8_t{0x7F}}) {
      std::vector<std::uint8_t> wrong = block.bytes;
      for (std::size_t i = 0; i < 4; ++i) wrong[at + i] = byte;
      ChangeExif(wrong, {.size = Size{1, 2}, .dropsThumbnail = true, .coloursAreSrgb = true});
      EXPECT_EQ(wrong[at], byte);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(InBothByteOrders, ExifChangesTest, testing::Bool(),
                         [](const auto& which) { return which.param ? "HighByteFirst" : "LowByteFirst"; });

TEST(ExifChanges, Bytes_that_are_no_exif_data_stay) {
  std::vector<std::uint8_t> bytes(40, 9);
  const auto before = bytes;
  ChangeExif(bytes, {.size = Size{1, 2}, .dropsThumbnail = true, .coloursAreSrgb = true});
  EXPECT_EQ(bytes, before);
  std::vector<std::uint8_t> none;
  ChangeExif(none, {.dropsThumbnail = true});
}

}  // namespace
}  // namespace lumidex
