#include <set>

#include "controls/gvbox_world.h"
#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/codec.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

class GvboxJpegTest : public GvboxTest {
 protected:
  void SetUp() override {
    GvboxTest::SetUp();
    Pixels slopes = Pixels::Make({64, 64}, PixelFormat::Rgb, 0);
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) {
        slopes.Row(y)[static_cast<std::size_t>(x)] = 0xFF000000U | static_cast<std::uint32_t>(x * 4) << 16 |
                                                     static_cast<std::uint32_t>(y * 4) << 8 |
                                                     static_cast<std::uint32_t>((x * y) % 256);
      }
    }
    platform.files.AddFile("/slopes.jpg", AsText(EncodeJpeg(slopes, 80)));
    box.SetFileName("/slopes.jpg");
  }
  // Loads the file again and gives its pixels.
  std::vector<std::uint32_t> Reloaded() {
    box.SetFileName("/slopes.jpg");
    const Pixels pixels = box.Picture().FullPixels();
    return {pixels.Data(), pixels.Data() + pixels.ByteCount() / 4};
  }
};

TEST_F(GvboxJpegTest, Decoder_options_take_effect_at_the_next_load) {
  const auto plain = Reloaded();
  box.FancyUpsizing = false;
  EXPECT_NE(Reloaded(), plain);
  box.FancyUpsizing = true;
  EXPECT_EQ(Reloaded(), plain);
  box.DCTMethod = 1;
  EXPECT_NE(Reloaded(), plain);
  box.DCTMethod = 0;
  box.JPGDitherMethod = 2;
  EXPECT_EQ(Reloaded(), plain);
}

TEST_F(GvboxJpegTest, The_numbers_of_the_choices_stand_in_the_order_of_their_names) {
  const auto opened = [&](const DecoderOptions& decoder) {
    OpenOptions options;
    options.decoder = decoder;
    const Pixels pixels = OpenPicture(platform.files, "/slopes.jpg", options).FullPixels();
    return std::vector<std::uint32_t>{pixels.Data(), pixels.Data() + pixels.ByteCount() / 4};
  };
  DecoderOptions decoder;
  int number = 0;
  for (const DctMethod dct : {DctMethod::SlowInteger, DctMethod::FastInteger, DctMethod::FloatingPoint}) {
    box.DCTMethod = number++;
    decoder.dct = dct;
    EXPECT_EQ(Reloaded(), opened(decoder)) << number;
  }
  box.DitherMethod = 1;
  decoder.reduceColours = true;
  box.TwoPassQuantize = decoder.twoPassQuantize = false;
  number = 0;
  for (const DitherMode mode : {DitherMode::None, DitherMode::Ordered, DitherMode::FloydSteinberg}) {
    box.JPGDitherMethod = number++;
    decoder.dithering = mode;
    EXPECT_EQ(Reloaded(), opened(decoder)) << number;
  }
}

TEST_F(GvboxJpegTest, Dithering_always_reduces_the_colours_as_the_other_options_say) {
  const auto plain = Reloaded();
  box.DitherMethod = 2;
  EXPECT_EQ(Reloaded(), plain);
  box.DitherMethod = 1;
  const auto reduced = Reloaded();
  EXPECT_LE(std::set<std::uint32_t>(reduced.begin(), reduced.end()).size(), 256U);
  box.JPGDitherMethod = 2;
  const auto spread = Reloaded();
  EXPECT_NE(spread, reduced);
  box.TwoPassQuantize = false;
  EXPECT_NE(Reloaded(), spread);
}

TEST_F(GvboxJpegTest, Saving_writes_the_working_image) {
  box.Rotate(1);
  box.Brightness(100);
  Saved();
  box.SetFileName("/out.jpg");
  EXPECT_EQ(box.PictureWidth(), 64);
  EXPECT_EQ(At(5, 5), 0xFFFFFFFFU);
}

TEST_F(GvboxJpegTest, The_writer_options_are_taken_as_typed) {
  const auto with = [&](const char* quality, const char* smoothing, int optimize) {
    box.JPGQuality = quality;
    box.JPGSmoothing = smoothing;
    box.JPGOptimize = optimize;
    return Saved();
  };
  const auto at75 = with("75", "0", 0);
  EXPECT_LT(with("10", "0", 0).size(), at75.size());
  EXPECT_EQ(with(" 75 percent", "0", 0), at75);
  EXPECT_EQ(with("", "none", 0), at75);
  EXPECT_EQ(with("500", "0", 0), with("100", "0", 0));
  EXPECT_EQ(with("-3", "0", 0), with("1", "0", 0));
  EXPECT_NE(with("75", "50", 0), at75);
  EXPECT_EQ(with("75", "101", 0), with("75", "100", 0));
  EXPECT_LT(with("75", "0", 1).size(), at75.size());
}

TEST_F(GvboxJpegTest, Text_that_does_not_begin_with_a_number_counts_as_the_usual_value) {
  const auto with = [&](const char* quality, const char* smoothing = "0") {
    box.JPGQuality = quality;
    box.JPGSmoothing = smoothing;
    return Saved();
  };
  const auto usual = with("75");
  for (const char* text : {"", " ", "abc", "quality 20", "&H10", "-", ".", "inf", "nan", "1e999"}) {
    EXPECT_EQ(with(text), usual) << text;
    EXPECT_EQ(with("75", text), usual) << text;
  }
  EXPECT_EQ(with("75.5 "), with("76"));
  EXPECT_EQ(with("74.5"), with("74"));
  EXPECT_EQ(with(".9"), with("1"));
  EXPECT_EQ(with("+20"), with("20"));
  EXPECT_EQ(with("2e1"), with("20"));
  EXPECT_EQ(with("1e3"), with("100"));
}

TEST_F(GvboxJpegTest, Saving_writes_the_whole_image_also_while_thumbnails_are_read) {
  box.Rotate(1);
  box.ThumbnailSize = 10;
  Saved();
  box.ThumbnailSize = 0;
  box.SetFileName("/out.jpg");
  EXPECT_EQ(box.PictureWidth(), 64);
  EXPECT_EQ(box.PictureHeight(), 64);
}

TEST_F(GvboxJpegTest, The_dithering_has_no_say_in_saving) {
  const auto before = Saved();
  box.JPGDitherMethod = 2;
  EXPECT_EQ(Saved(), before);
}

TEST_F(GvboxJpegTest, A_file_can_be_saved_over_itself) {
  box.Rotate(1);
  Saved("/slopes.jpg");
  box.SetFileName("/slopes.jpg");
  EXPECT_EQ(box.PictureWidth(), 64);
}

// A JPEG file with a comment and with EXIF data: the orientation mark, and a further directory for a small
// picture.
std::vector<std::uint8_t> WithMetadata(const std::vector<std::uint8_t>& jpeg, std::uint8_t orientation) {
  ByteWriter exif;
  exif.Append(std::string_view("Exif\0\0II", 8)).U16Le(42).U32Le(8);
  exif.U16Le(1).U16Le(0x0112).U16Le(3).U32Le(1).U32Le(orientation).U32Le(26);
  exif.U16Le(0).U32Le(0);
  ByteWriter file;
  file.Append(std::span(jpeg).first(2));
  file.Add({0xFF, 0xE1}).U16Be(static_cast<std::uint32_t>(exif.Size() + 2)).Append(exif.Bytes());
  file.Add({0xFF, 0xFE}).U16Be(6).Append(std::string_view("note"));
  file.Append(std::span(jpeg).subspan(2));
  return file.Take();
}

class GvboxMetadata : public GvboxJpegTest {
 protected:
  void SetUp() override {
    GvboxJpegTest::SetUp();
    const auto plain = EncodeJpeg(Pixels::Make({32, 16}, PixelFormat::Rgb, 0xFF404040), 80);
    platform.files.AddFile("/noted.jpg", AsText(WithMetadata(plain, 6)));
    box.SetFileName("/noted.jpg");
  }
  // What the saved file says.
  JpegMetadata SavedMetadata(const std::string& to = "/out.jpg") {
    Saved(to);
    return OpenPicture(platform.files, to).Metadata();
  }
  static int OrientationMark(const JpegMetadata& metadata) {
    return metadata.segments.at(0).bytes.at(6 + 18);
  }
  static int NextDirectory(const JpegMetadata& metadata) { return metadata.segments.at(0).bytes.at(6 + 22); }
};

TEST_F(GvboxMetadata, Saved_as_it_was_a_jpeg_file_keeps_what_it_says_and_stands_upright) {
  ASSERT_EQ(box.PictureWidth(), 16);
  const JpegMetadata saved = SavedMetadata();
  ASSERT_EQ(saved.segments.size(), 2U);
  EXPECT_EQ(OrientationMark(saved), 1);
  EXPECT_EQ(NextDirectory(saved), 26);
  EXPECT_EQ(AsText(saved.segments[1].bytes), "note");
  box.SetFileName("/out.jpg");
  EXPECT_EQ(box.PictureWidth(), 16);
  EXPECT_EQ(box.PictureHeight(), 32);
}

TEST_F(GvboxMetadata, Turned_or_filtered_it_says_so_too_without_the_small_picture) {
  box.Rotate(1);
  JpegMetadata saved = SavedMetadata();
  EXPECT_EQ(OrientationMark(saved), 1);
  EXPECT_EQ(NextDirectory(saved), 0);
  box.SetFileName("/noted.jpg");
  box.Brightness(10);
  saved = SavedMetadata();
  EXPECT_EQ(saved.segments.size(), 2U);
  EXPECT_EQ(NextDirectory(saved), 0);
}

TEST_F(GvboxMetadata, A_file_saved_over_itself_or_gone_meanwhile_still_says_it) {
  EXPECT_EQ(SavedMetadata("/noted.jpg").segments.size(), 2U);
  platform.files.Remove("/noted.jpg");
  EXPECT_EQ(SavedMetadata().segments.size(), 2U);
}

TEST_F(GvboxMetadata, What_came_from_no_file_says_nothing) {
  box.SetPicture(box.Picture());
  EXPECT_TRUE(SavedMetadata().segments.empty());
  box.SetFileName(path);
  EXPECT_TRUE(SavedMetadata().segments.empty());
}

TEST_F(GvboxJpegTest, Errors_of_the_disk_come_out_and_the_old_file_stays) {
  platform.files.AddDirectory("/ro");
  platform.files.SetReadOnly("/ro", true);
  platform.files.AddFile("/keep.jpg", "old");
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/ro/out.jpg"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/none/out.jpg"); }), 76);
  platform.files.SetReadOnly("/keep.jpg", true);
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/keep.jpg"); }), 70);
  platform.files.SetReadOnly("/keep.jpg", false);
  platform.files.SetFreeBytes(100);
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/keep.jpg"); }), 61);
  EXPECT_EQ(platform.files.ReadAll("/keep.jpg"), "old");
}

TEST_F(GvboxTest, There_is_nothing_to_save_without_an_image) {
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/out.jpg"); }), 481);
  EXPECT_FALSE(platform.files.Look("/out.jpg"));
}

}  // namespace
}  // namespace lumidex
