#include "pictures/jpeg_metadata.h"

#include <gmock/gmock.h>

#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/jpeg_writer.h"
#include "pictures/picture.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/collecting_sink.h"
#include "pictures/support/library_writers.h"
#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view xmp =
    "http://ns.adobe.com/xap/1.0/\0<x:xmpmeta><rdf:Description tiff:Orientation=\"6\" "
    "exif:PixelXDimension='16'><tiff:ImageLength>16</tiff:ImageLength></rdf:Description></x:xmpmeta>"sv;

// Marker segments behind the start of a file, in front of everything that stands there.
std::vector<std::uint8_t> WithSegments(const std::vector<std::uint8_t>& jpeg,
                                       std::initializer_list<std::pair<int, std::string_view>> segments) {
  ByteWriter file;
  file.Append(std::span(jpeg).first(2));
  for (const auto& [marker, bytes] : segments) {
    file.U8(0xFF).U8(static_cast<std::uint32_t>(marker));
    file.U16Be(static_cast<std::uint32_t>(bytes.size() + 2)).Append(bytes);
  }
  file.Append(std::span(jpeg).subspan(2));
  return file.Take();
}

std::vector<std::uint8_t> Plain(Size size = {16, 8}) {
  return EncodeJpeg(Pixels::Make(size, PixelFormat::Rgb, 0xFF808080), 90);
}

JpegMetadata Read(const std::vector<std::uint8_t>& file, std::uint64_t start = 0) {
  return ReadJpegMetadata(MemorySource(file), start);
}

std::string TextOf(const JpegMetadata::Segment& segment) {
  return {segment.bytes.begin(), segment.bytes.end()};
}

std::vector<std::uint8_t> Written(const JpegMetadata& metadata) {
  CollectingSink sink;
  WriteJpeg(Pixels::Make({16, 8}, PixelFormat::Rgb, 0xFF808080), {}, sink, metadata);
  return sink.bytes;
}

TEST(JpegMetadata, Exif_xmp_iptc_and_comments_are_kept_in_their_order) {
  const auto file = WithSegments(Plain(), {{0xE1, "Exif\0\0MM"sv},
                                           {0xE1, xmp},
                                           {0xE1, "http://ns.adobe.com/xmp/extension/\0more"sv},
                                           {0xED, "Photoshop 3.0\08BIM"sv},
                                           {0xFE, "a comment"sv}});
  const JpegMetadata metadata = Read(file);
  ASSERT_EQ(metadata.segments.size(), 5U);
  EXPECT_TRUE(metadata.HasExif());
  EXPECT_EQ(TextOf(metadata.segments[1]), xmp);
  EXPECT_EQ(metadata.segments[3].marker, 0xED);
  EXPECT_EQ(TextOf(metadata.segments[4]), "a comment");
  const JpegMetadata again = Read(Written(metadata));
  ASSERT_EQ(again.segments.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(TextOf(again.segments[i]), TextOf(metadata.segments[i]));
}

TEST(JpegMetadata, What_tells_of_places_in_its_own_file_is_left_behind) {
  const auto file = WithSegments(Plain(), {{0xE2, "MPF\0MM"sv},
                                           {0xE1, "something else"sv},
                                           {0xED, "Adobe_CM\0"sv},
                                           {0xEE, "Adobe"sv},
                                           {0xE4, "x"sv}});
  EXPECT_TRUE(Read(file).segments.empty());
  EXPECT_FALSE(Read(file).HasExif());
}

TEST(JpegMetadata, It_ends_where_the_picture_begins_or_the_file_is_cut) {
  const auto file = WithSegments(Plain(), {{0xFE, "one"sv}});
  auto behind = file;
  behind.insert(behind.end() - 2, {0xFF, 0xFE, 0, 4, 'n', 'o'});
  EXPECT_EQ(Read(behind).segments.size(), 1U);
  for (std::size_t size = 0; size < file.size(); ++size) {
    const std::vector<std::uint8_t> cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(Read(cut).segments.size(), size >= 9 ? 1U : 0U) << size;
  }
}

TEST(JpegMetadata, Fill_bytes_and_bytes_before_the_picture_are_passed_over) {
  auto file = WithSegments(Plain(), {{0xFE, "one"sv}});
  file.insert(file.begin() + 2, {0xFF, 0xFF});
  file.insert(file.begin(), {1, 2, 3});
  ASSERT_EQ(Read(file, 3).segments.size(), 1U);
  EXPECT_EQ(Picture::Open(DataOf(file, ".jpg")).Metadata().segments.size(), 1U);
}

TEST(JpegMetadata, No_more_is_taken_than_its_limit) {
  const std::string large(65533, 'x');
  ByteWriter file;
  file.Add({0xFF, 0xD8});
  for (int i = 0; i < 600; ++i) file.Add({0xFF, 0xFE, 0xFF, 0xFF}).Append(large);
  EXPECT_EQ(Read(file.Bytes()).segments.size(), (std::size_t{32} << 20) / large.size());
}

TEST(JpegMetadata, The_density_is_kept_unless_exif_data_tells_it) {
  auto file = Plain();
  ASSERT_EQ(file[3], 0xE0);  // the JFIF header, which the encoder writes
  file[13] = 1;
  file[15] = 96;
  file[17] = 72;
  const JpegMetadata metadata = Read(file);
  EXPECT_EQ(metadata.densityUnit, 1);
  EXPECT_EQ(metadata.densityX, 96);
  EXPECT_EQ(metadata.densityY, 72);
  EXPECT_EQ(Read(Written(metadata)).densityX, 96);
  JpegMetadata withExif = metadata;
  withExif.segments.push_back({0xE1, {'E', 'x', 'i', 'f', 0, 0}});
  const auto written = Written(withExif);
  EXPECT_EQ(written[3], 0xE1);
  EXPECT_EQ(Read(written).densityX, 1);
}

TEST(JpegMetadata, The_orientation_and_the_size_are_those_of_the_pixels) {
  const auto turned = WithOrientation(Plain({16, 8}), 6, true);
  const auto file = WithSegments(turned, {{0xE1, xmp}});
  const Picture picture = Picture::Open(DataOf(file, ".jpg"));
  ASSERT_EQ(picture.GetSize(), (Size{8, 16}));
  JpegMetadata metadata = picture.Metadata();
  DescribeUpright(metadata, picture.GetSize(), PixelsAre::AsInTheFile);
  CollectingSink sink;
  WriteJpeg(picture.FullPixels(), {}, sink, metadata);
  EXPECT_EQ(Picture::Open(DataOf(sink.bytes, ".jpg")).GetSize(), (Size{8, 16}));
  const std::string text = TextOf(metadata.segments[0]);
  EXPECT_THAT(text, testing::HasSubstr("tiff:Orientation=\"1\""));
  EXPECT_THAT(text, testing::HasSubstr("exif:PixelXDimension='8'"));
  EXPECT_THAT(text, testing::HasSubstr("<tiff:ImageLength>16</tiff:ImageLength>"));
}

TEST(JpegMetadata, Xmp_data_that_would_grow_too_long_stays_as_it_is) {
  std::string longest(xmp);
  longest.insert(longest.size() - 1, std::string(65533 - longest.size(), ' '));
  const std::size_t width = longest.find("'16'");
  longest.replace(width, 4, "'7'");
  longest.insert(longest.size() - 1, 1, ' ');
  JpegMetadata metadata;
  metadata.segments.push_back({0xE1, {longest.begin(), longest.end()}});
  ASSERT_EQ(longest.size(), 65533U);
  DescribeUpright(metadata, {30000, 7}, PixelsAre::Changed);
  EXPECT_EQ(TextOf(metadata.segments[0]), longest);
}

TEST(JpegMetadata, A_profile_that_the_colours_were_converted_from_gives_way_to_srgb) {
  const auto open = [&](int components, std::vector<std::uint8_t> icc) {
    const std::vector<std::uint8_t> samples(64U * static_cast<unsigned>(components), 100);
    return Picture::Open(
        DataOf(WriteJpeg({8, 8}, samples, {.components = components, .icc = std::move(icc)}), ".jpg"));
  };
  const JpegMetadata converted = open(3, SwappedProfile()).Metadata();
  EXPECT_NE(converted.profile, SwappedProfile());
  const Picture saved = Picture::Open(DataOf(Written(converted), ".jpg"));
  EXPECT_EQ(saved.Metadata().profile, converted.profile);  // nothing is left to convert
  EXPECT_EQ(open(1, GreyProfileOf(Curve::Linear)).Metadata().profile, converted.profile);
  EXPECT_EQ(open(3, SrgbProfile()).Metadata().profile, SrgbProfile());
  EXPECT_TRUE(open(3, {1, 2, 3}).Metadata().profile.empty());
  EXPECT_TRUE(open(3, {}).Metadata().profile.empty());
  // A grey picture has no use for a profile of colours.
  EXPECT_TRUE(open(1, SrgbProfile()).Metadata().profile.empty());
}

TEST(JpegMetadata, A_profile_in_pieces_is_joined_and_an_incomplete_one_is_none) {
  const auto file = WithSegments(
      Plain(), {{0xE2, "ICC_PROFILE\0\x02\x02world"sv}, {0xE2, "ICC_PROFILE\0\x01\x02hello "sv}});
  const JpegMetadata metadata = Read(file);
  EXPECT_EQ(std::string(metadata.profile.begin(), metadata.profile.end()), "hello world");
  EXPECT_TRUE(Read(WithSegments(Plain(), {{0xE2, "ICC_PROFILE\0\x02\x02world"sv}})).profile.empty());
}

TEST(JpegMetadata, Pictures_that_come_from_no_jpeg_file_have_none) {
  EXPECT_TRUE(Picture().Metadata().segments.empty());
  const Pixels pixels = Pixels::Make({2, 2}, PixelFormat::Rgb, 0xFF000000);
  EXPECT_TRUE(Picture::FromPixels(pixels, 24).Metadata().segments.empty());
}

}  // namespace
}  // namespace lumidex
